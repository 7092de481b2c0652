#pragma once

#include "SCommand.h"

/// Parts of the manual page in the language of man(7).
namespace NManPage {

/// A subsection for each command with all that its help tells.
QString commands(const QVector<SCommand>& commands);
/// Paragraphs, lists and tables of two columns; headings are left out.
QString fromMarkdown(const QString& text);

}  // namespace NManPage
