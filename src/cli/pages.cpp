#include "cli/pages.h"

#include <utility>

#include "base/encoding.h"
#include "base/error.h"
#include "base/files.h"
#include "base/nearest.h"
#include "base/text.h"
#include "cli/pdf_program.h"
#include "output/page_file.h"

namespace korvane::cli {

namespace {

constexpr std::string_view kDefaultTemplate = "template.htm";

// A template: a bare name is one of the data folder, else of the working folder.
HeldPath TemplatePath(const HeldPath& location, const std::string& wanted) {
    HeldPath path(wanted);
    if (path.text().find('\\') != std::string::npos)
        return path;
    if (FileExists(location + wanted))
        return location + wanted;
    if (FileExists(path))
        return path;
    auto message =
        Concat("unknown template ", Quoted(wanted), " (",
               Printable((NativePath(location) / std::filesystem::path(wanted)).string(), 300), ": no such file)");
    const auto names = TemplateNames(location);
    const std::vector<std::string_view> known(names.begin(), names.end());
    message += DidYouMean(wanted, known);
    if (!known.empty())
        AppendAll(message, "; there are: ", Listed(known));
    throw UsageError(message);
}

}  // namespace

PageMaker::PageMaker(Session& session, const std::string& templateName)
    : session_(session),
      template_(ReadTemplate(
          TemplatePath(session.data.location(), templateName.empty() ? std::string(kDefaultTemplate) : templateName))) {
    session.masterSkills = LoadMasterSkills(session.data.location());
}

MadePage PageMaker::Make(std::string_view name) const {
    return {PageFileName(name), Page(template_, session_, name), {}};
}

MadePage PageMaker::MakeListed(std::string_view name, const std::string& stem) const {
    const auto file = stem + ".htm";
    return {file, Page(template_, session_, name), IndexRow(session_, name, file)};
}

void PageWriter::Write(const MadePage& page) {
    const auto file = folder_ / page.file;
    ReplaceFile(file, page.bytes, listed_ ? Sync::Later : Sync::Now);
    if (listed_)
        index_.Add(page.row);
    if (order_.pdf)
        printed_.push_back(file);
}

void PageWriter::Finish() {
    if (listed_)
        ReplaceFile(folder_ / "index.htm", index_.Page(), Sync::Later);
    SyncFolder(folder_);
    MakePdfs(std::exchange(printed_, {}));
}

}  // namespace korvane::cli
