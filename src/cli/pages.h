// The pages that commands write, and the list that leads to them.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
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

class PageWriter {
  public:
    // Reads the template, and the master skill list into the session; several pages are `listed` in an index. Throws
    // UsageError for a template that the data folder doesn't have, and FileError for what can't be read.
    PageWriter(Session& session, const PageOrder& order, std::filesystem::path folder, bool listed);

    // Writes the page of the session's character; the file is called by the letters of the name. Throws FileError for a
    // page that can't be written.
    void Write(std::string_view name);
    // The same, into a file of the given name without its ending; the index will lead to it.
    void WriteListed(std::string_view name, const std::string& stem);
    // Writes "index.htm" where it is wanted, brings all to the disk and has the PDF files made. Throws as above, and
    // UsageError when a PDF file can't be made.
    void Finish();

  private:
    void WriteAs(std::string_view name, const std::string& fileName, Sync sync);

    Session& session_;
    const PageOrder& order_;
    std::filesystem::path folder_;
    bool listed_;
    PageTemplate template_;
    PageIndex index_;
    std::vector<std::filesystem::path> printed_;  // pages that PDF files are made of
};

}  // namespace korvane::cli
