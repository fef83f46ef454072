#include "cli/pages.h"

#include <utility>

#include "base/encoding.h"
#include "base/error.h"
#include "base/files.h"
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
    const auto known = TemplateNames(location);
    for (const auto& name : known)
        AppendAll(message, &name == &known.front() ? "; there are: " : ", ", name);
    throw UsageError(message);
}

}  // namespace

PageWriter::PageWriter(Session& session, const PageOrder& order, std::filesystem::path folder, bool listed)
    : session_(session),
      order_(order),
      folder_(std::move(folder)),
      listed_(listed),
      template_(ReadTemplate(TemplatePath(
          session.data.location(), order.templateName.empty() ? std::string(kDefaultTemplate) : order.templateName))) {
    session.masterSkills = LoadMasterSkills(session.data.location());
}

void PageWriter::WriteAs(std::string_view name, const std::string& fileName, Sync sync) {
    const auto file = folder_ / fileName;
    ReplaceFile(file, Page(template_, session_, name), sync);
    if (order_.pdf)
        printed_.push_back(file);
}

void PageWriter::Write(std::string_view name) {
    WriteAs(name, PageFileName(name), Sync::Now);
}

void PageWriter::WriteListed(std::string_view name, const std::string& stem) {
    WriteAs(name, stem + ".htm", Sync::Later);
    index_.Add(session_, name, stem + ".htm");
}

void PageWriter::Finish() {
    if (listed_)
        ReplaceFile(folder_ / "index.htm", index_.Page(), Sync::Later);
    SyncFolder(folder_);
    MakePdfs(std::exchange(printed_, {}));
}

}  // namespace korvane::cli
