// The export dialog: a name, a template, a page on disk, and its PDF file.

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <filesystem>
#include <gtest/gtest.h>

#include "character/characteristics.h"
#include "desktop/exporter.h"
#include "pdf/page_pdf.h"
#include "pdf/paper.h"
#include "support/environment.h"
#include "support/temp_folder.h"
#include "support_ui/desk.h"

namespace korvane {
namespace {

using test::Child;
using test::PressKey;
using test::RealClick;

class ExportTest : public ::testing::Test {
  protected:
    ExportTest() { rules.CopyRules(); }

    void Close() { robot.ThenKey("KVNExport", Qt::Key_Escape); }
    std::string PathOf(const std::string& file) const { return (profile.path() / "Korvane" / file).string(); }

    test::TempFolder rules;
    test::TempFolder profile;
    const test::Environment environment{{"USERPROFILE=" + profile.path().string(), "KORVANE_BROWSER=none"}};
    test::Desk desk{rules.held()};
    Exporter exporter{desk.session, desk.window, desk.window.player(), desk.guard};
    test::Robot robot;
};

TEST_F(ExportTest, WritesThePageOfTheSelectedTemplate) {
    desk.session.character.LeftOpen.Add("1 skill package");
    robot.Then("KVNExport", [&](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), desk.window.windowTitle());
        EXPECT_EQ(Child<QLabel>(dialog, "open").text(), "Still to decide: 1 skill package");
        const auto& templates = Child<QListWidget>(dialog, "templates");
        EXPECT_EQ(templates.count(), 3 + 5) << "and what other programs take";
        EXPECT_EQ(templates.currentItem()->text(), "template-plain.htm") << "the first of them";
        PressKey(dialog, Qt::Key_J, Qt::ShiftModifier);
        PressKey(dialog, Qt::Key_Return);
    });
    robot.ThenMessage("Character exported to " + PathOf("j.htm"), QMessageBox::Ok);
    robot.Then("KVNExport", [](QWidget& dialog) {
        EXPECT_TRUE(Child<QLabel>(dialog, "destination").text().endsWith("j.htm, replaces an older file"));
        QImage picture(2000, 50, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QApplication::clipboard()->setImage(picture);
        auto& name = Child<QLineEdit>(dialog, "name");
        name.setText("Zoe <b>");
        name.setFocus();
        PressKey(dialog, Qt::Key_V, Qt::ControlModifier);
        const auto& page = Child<QTextBrowser>(dialog, "page");
        EXPECT_TRUE(QTest::qWaitFor([&] { return page.toPlainText().contains("Zoe"); })) << "the page, as it will be";
        const auto& destination = Child<QLabel>(dialog, "destination");
        EXPECT_TRUE(destination.text().endsWith("Zoeb.htm")) << destination.text().toStdString();
        name.setText("\u0416");
        EXPECT_TRUE(QTest::qWaitFor([&] { return destination.text().contains("share this hidden file"); }));
        name.setText("Zoe <b>");
        Child<QCheckBox>(dialog, "pdf").setChecked(true);
        RealClick(dialog, "export");
    });
    robot.Then("QMessageBox", [this](QWidget& dialog) {
        const auto& box = dynamic_cast<QMessageBox&>(dialog);
        EXPECT_EQ(box.text().toStdString(), "Character exported to " + PathOf("Zoeb.htm"));
        EXPECT_EQ(box.informativeText().toStdString(),
                  "Portrait written to " + PathOf("Zoeb.jpg") + "\nPDF file written to " + PathOf("Zoeb.pdf") +
                      ", printed by the toolkit in simple styles: there is no Chromium");
        PressKey(dialog, Qt::Key_Return);
    });
    Close();
    exporter.Show(desk.window.life().tape());
    robot.Then("KVNExport", [](QWidget& dialog) {
        EXPECT_EQ(Child<QLineEdit>(dialog, "name").text(), "Zoe <b>") << "the same character's again";
        PressKey(dialog, Qt::Key_Escape);
    });
    exporter.Show(desk.window.life().tape(), false);
    EXPECT_NE(profile.Read("Korvane/Zoeb.htm").find("\nZoe <b>\n</title>"), std::string::npos)
        << profile.Read("Korvane/Zoeb.htm").substr(0, 300);
    EXPECT_TRUE(profile.Read("Korvane/Zoeb.pdf").starts_with("%PDF"));
    EXPECT_EQ(QImage(QString::fromStdString(PathOf("Zoeb.jpg"))).width(), 1200) << "no larger than it need be";
    EXPECT_FALSE(std::filesystem::exists(PathOf("j.pdf")));
}

TEST_F(ExportTest, WritesForOtherProgramsBesideThePages) {
    robot.Then("KVNExport", [](QWidget& dialog) {
        auto& templates = Child<QListWidget>(dialog, "templates");
        templates.setCurrentItem(templates.findItems("Notes (Markdown)", Qt::MatchExactly).value(0));
        Child<QLineEdit>(dialog, "name").setText("Zoe: \"x\"");
        const auto& destination = Child<QLabel>(dialog, "destination");
        EXPECT_TRUE(QTest::qWaitFor([&] { return destination.text().endsWith("Zoex.md"); }))
            << destination.text().toStdString();
        Child<QCheckBox>(dialog, "pdf").setChecked(true);
        RealClick(dialog, "export");
    });
    robot.Then("QMessageBox", [this](QWidget& dialog) {
        const auto& box = dynamic_cast<QMessageBox&>(dialog);
        EXPECT_EQ(box.text().toStdString(), "Character exported to " + PathOf("Zoex.md"));
        EXPECT_EQ(box.informativeText(), "No PDF file was written: it is made of a page.");
        PressKey(dialog, Qt::Key_Return);
    });
    Close();
    exporter.Show(desk.window.life().tape());
    const auto notes = profile.Read("Korvane/Zoex.md");
    EXPECT_TRUE(notes.starts_with("---\nname: \"Zoe: \\\"x\\\"\"\n")) << notes.substr(0, 80);
    EXPECT_FALSE(std::filesystem::exists(PathOf("Zoex.htm")));
}

TEST_F(ExportTest, OffersTenNamesAsOftenAsWanted) {
    QString offered;
    robot.Then("KVNExport", [](QWidget& dialog) { RealClick(dialog, "rollName"); });
    robot.Then("SPICKBOX", [](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Select Character Name");
        EXPECT_EQ(Child<QPushButton>(dialog, "pick11").text(), "(Roll Again)");
        RealClick(dialog, "pick11");
    });
    robot.Then("SPICKBOX", [&](QWidget& dialog) {
        offered = Child<QPushButton>(dialog, "pick3").text();
        PressKey(dialog, Qt::Key_3);
    });
    robot.Then("KVNExport", [&](QWidget& dialog) {
        EXPECT_EQ(Child<QLineEdit>(dialog, "name").text(), offered);
        EXPECT_FALSE(offered.isEmpty());
        PressKey(dialog, Qt::Key_Escape);
    });
    robot.ThenMessage("The character has not been exported. Close all the same?", QMessageBox::No);
    Close();
    robot.ThenMessage("The character has not been exported. Close all the same?", QMessageBox::Yes);
    exporter.Show(desk.window.life().tape());
}

TEST_F(ExportTest, LeavingTheNamesLeavesTheDialogAsItWas) {
    robot.Then("KVNExport", [](QWidget& dialog) {
        Child<QLineEdit>(dialog, "name").setText("Jo");
        RealClick(dialog, "rollName");
    });
    robot.ThenKey("SPICKBOX", Qt::Key_Escape);
    robot.Then("KVNExport", [](QWidget& dialog) {
        EXPECT_EQ(Child<QLineEdit>(dialog, "name").text(), "Jo");
        PressKey(dialog, Qt::Key_Escape);
    });
    robot.ThenMessage("The character has not been exported. Close all the same?", QMessageBox::Yes);
    exporter.Show(desk.window.life().tape());
}

TEST_F(ExportTest, AFaultIsShownAndLosesNothing) {
    std::filesystem::remove(rules.path() / "Names.dat");
    robot.Then("KVNExport", [&](QWidget& dialog) {
        std::filesystem::remove(rules.path() / "template-plain.htm");
        RealClick(dialog, "export");
    });
    robot.ThenMessage(
        (rules.path() / "template-plain.htm").string() + ": can't be read as a template: No such file or directory",
        QMessageBox::Ok);
    robot.Then("KVNExport", [](QWidget& dialog) { RealClick(dialog, "rollName"); });
    robot.Then("QMessageBox", [](QWidget& dialog) {
        EXPECT_TRUE(dynamic_cast<QMessageBox&>(dialog).text().contains("Names.dat"));
        PressKey(dialog, Qt::Key_Return);
    });
    Close();
    robot.ThenMessage("The character has not been exported. Close all the same?", QMessageBox::Yes);
    exporter.Show(desk.window.life().tape());
}

TEST_F(ExportTest, PdfKeepsLinesThatStandInNoRow) {
    const auto page = profile.Write("p.htm", "<p>x</p><table width=100% border=1>before<br></table>");
    const auto plain = profile.Write("q.htm", "<p>x</p><table width=100% border=1></table>");
    pdf::PdfMaker maker;
    const auto size = [&](const std::filesystem::path& file) {
        const auto pdf = pdf::PdfNameOf(QString::fromStdString(file.string()));
        maker.Write(QString::fromStdString(file.string()), pdf);
        return std::filesystem::file_size(pdf.toStdString());
    };
    EXPECT_GT(size(page), size(plain));
    const auto source = QString::fromStdString(page.string());
    EXPECT_THROW(maker.Write(source, source + "/p.pdf"), IoError) << "the page is no folder";
    const auto picture = profile.Write("p.jpg", "bytes");
    EXPECT_THROW(maker.Write(QString::fromStdString(picture.string()), "p.pdf"), IoError) << "a picture is no page";
}

// The toolkit's documents know neither the sheet's script nor its styles for what is empty.
TEST_F(ExportTest, ThePageInSimpleStylesHasDashesAndTermsSideBySide) {
    const auto text = [](const QString& html) { return pdf::MakeDocument(html, "p.htm")->toPlainText(); };
    EXPECT_EQ(text("<table class=\"figures means\"><tr><th>Debt</th><td></td><td class=\"now\"></td></tr></table>"),
              QString::fromUtf8("\nDebt\n\u2013\n\n"));
    EXPECT_EQ(text("<table class=\"levels\"><tr><td></td></tr></table>"), "\n-3\n");
    const QString history =
        "<table width=100% border=1><tr width=100%><td>-- Term 1 --<br>Born<br>Schooled<br>"
        "------ Term 2 ------<br>Enlist%1<br>------ Term 3 ------<br></table>";
    EXPECT_EQ(text(history.arg("")), QString::fromUtf8("\nTerm 1\nBorn \u00b7 Schooled\nTerm 2\nEnlist\nTerm 3\n\n"));
    EXPECT_TRUE(text(history.arg(" <i>Navy</i>")).contains("-- Term 1 --")) << "whose markup might run over lines";
}

TEST_F(ExportTest, AHeadingStaysWithItsTextOnPaper) {
    QTextDocument document;
    QString html;
    for (int i = 0; i < 60; ++i)
        html +=
            QStringLiteral("<h2>Heading</h2><p>%1</p>").arg(QString(200 + 37 * i % 211, 'x').replace("xxxxx", "xxxx "));
    document.setHtml(html);
    document.setPageSize({400, 300});
    pdf::KeepWholes(document);
    ASSERT_GT(document.pageCount(), 4);
    const auto page_of = [&document](const QTextBlock& block) {
        const auto rect = document.documentLayout()->blockBoundingRect(block);  // which lays it out
        return static_cast<int>((rect.top() + block.layout()->lineAt(0).y()) / document.pageSize().height());
    };
    for (auto block = document.begin(); block.isValid(); block = block.next().next()) {
        ASSERT_GT(block.blockFormat().headingLevel(), 0);
        EXPECT_EQ(page_of(block), page_of(block.next())) << block.blockNumber();
    }
}

TEST_F(ExportTest, ABrowserThatFailsIsToldOfAndTheToolkitPrints) {
    const auto page = QString::fromStdString(profile.Write("p.htm", "<p>x</p>").string());
    const auto program = profile.Write("browser", "#!/bin/sh\nexit 1\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    pdf::PdfMaker maker(pdf::PaperNamed("Letter"), QString::fromStdString(program.string()));
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(maker.Write(page, pdf::PdfNameOf(page)).toStdString(),
                  "printed by the toolkit in simple styles: " + program.string() + ": it ended");
    EXPECT_TRUE(profile.Read("p.pdf").starts_with("%PDF"));
    EXPECT_NE(profile.Read("p.pdf").find("[0 0 612"), std::string::npos) << "the paper of that name";
    EXPECT_FALSE(pdf::PaperNamed("a 4").isValid());
    pdf::PdfMaker none(pdf::PaperNamed("A4"), PathOf("nothing").c_str());
    EXPECT_TRUE(none.Write(page, pdf::PdfNameOf(page)).endsWith("can't be started: No such file or directory"));
}

TEST_F(ExportTest, TheProgramForPdfFilesPrintsEveryPageWithItsPicture) {
    const auto first = profile.Write("a.htm", "<p>a</p>");
    const auto second = profile.Write("b.htm", "<p>b</p><img src=b.png>");
    QImage picture(200, 200, QImage::Format_RGB32);
    for (int i = 0; i < 40000; ++i)
        picture.setPixel(i % 200, i / 200, static_cast<uint>(i * 7919));
    picture.save(QString::fromStdString((profile.path() / "b.png").string()));
    EXPECT_EQ(QProcess::execute(KORVANE_PDF, {QString::fromStdString(first), QString::fromStdString(second)}), 0);
    EXPECT_LT(std::filesystem::file_size(profile.path() / "a.pdf") + 10000,
              std::filesystem::file_size(profile.path() / "b.pdf"));
}

}  // namespace
}  // namespace korvane
