// A document of the toolkit's on paper.
#pragma once

#include <QByteArray>
#include <QPageSize>
#include <QTextDocument>

namespace korvane::pdf {

// The paper that people of this machine print on: that of PAPERSIZE where it names one, else what is usual where its
// numbers and dates are.
QPageSize UsualPaper();
// The paper of this name, as "A4", "Letter" or "a5", without regard to case; invalid for none.
QPageSize PaperNamed(const QString& name);

// Begins a new page of a document that has pages where one would end within what belongs together, which the toolkit
// doesn't mind: after a heading, in a small table, or in a line.
void KeepWholes(QTextDocument& document);

// The bytes of a PDF file with the document's title. A heading goes with what follows it; each page has the title and
// its number at its foot. The document is laid out anew for that.
QByteArray PrintOn(const QPageSize& paper, QTextDocument& document);

}  // namespace korvane::pdf
