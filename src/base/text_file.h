// A text file that was read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

// The text and where its lines stand in it, without their ends (LF or CR LF). What follows the last line end is no
// line. Views of the lines hold as long as this object stays where it is.
class TextFile {
  public:
    // `name` is the native one, for messages; the text is UTF-8 and shorter than 4 GB; `digest` is that of the file's
    // bytes.
    TextFile(std::string name, std::string text, std::string digest = {});

    const std::string& name() const { return name_; }
    const std::string& text() const { return text_; }
    const std::string& digest() const { return digest_; }
    int lines() const { return static_cast<int>(ends_.size()); }
    // The line of that number, from 1 to `lines()`.
    std::string_view line(int number) const;
    // The number of the line in which a part of the text stands; 0 for a text from elsewhere.
    int LineOf(std::string_view part) const;

  private:
    std::string name_;
    std::string text_;
    std::string digest_;
    std::vector<std::uint32_t> ends_;  // behind each line, where its LF stands or would
};

}  // namespace korvane
