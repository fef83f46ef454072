// A page's HTML for the toolkit's text documents, which know no script and few styles.
#pragma once

#include <QString>

namespace korvane::pdf {

// The page with what the sheet's script and styles would have added: dashes in the tables of figures where there is
// nothing, -3 for skills that aren't held, the terms of the history in two columns. A page that is laid out in another
// way, or whose texts hold markup of their own, stays as it is there.
QString SimplePage(QString html);

}  // namespace korvane::pdf
