// The pages that commands write, and the list that leads to them.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/files.h"
#include "character/KVNDeclare.h"
#include "cli/page_index.h"
#include "output/page_export.h"

namespace korvane::cli {

struct PageOrder {
    std::string templateName;  // a file of the data folder, or a path; empty: "template.htm"
    bool pdf = false;          // have each page made into a PDF file too

    bool operator==(const PageOrder&) const = default;
};

// A page that is to be written.
struct MadePage {
    std::string file;  // its name
    std::string bytes;
    std::string row;  // of the index
};

// Makes the pages of a session's characters.
class PageMaker {
  public:
    // Reads the template, and the master skill list into the session. Throws UsageError for a template that the data
    // folder doesn't have, and FileError for what can't be read.
    PageMaker(Session& session, const std::string& templateName);

    // The page of the session's character, in a file that is called by the letters of the name.
    MadePage Make(std::string_view name) const;
    // One of several, which an index lists, in a file that is called so, without the ending.
    MadePage MakeListed(std::string_view name, const std::string& stem) const;

  private:
    const Session& session_;
    PageTemplate template_;
};

class PageWriter {
  public:
    // Several pages are `listed` in an index.
    PageWriter(const PageOrder& order, std::filesystem::path folder, bool listed)
        : order_(order), folder_(std::move(folder)), listed_(listed) {}

    // Throws FileError for a page that can't be written.
    void Write(const MadePage& page);
    // Writes "index.htm" where it is wanted, brings all to the disk and has the PDF files made. Throws as above, and
    // UsageError when a PDF file can't be made.
    void Finish();

  private:
    const PageOrder& order_;
    std::filesystem::path folder_;
    bool listed_;
    PageIndex index_;
    std::vector<std::filesystem::path> printed_;  // pages that PDF files are made of
};

}  // namespace korvane::cli
