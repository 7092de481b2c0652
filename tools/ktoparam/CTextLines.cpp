#include "CTextLines.h"

#include "COutput.h"
#include "DisplayText.h"

void CTextLines::add(const QString& subject, const QString& value) {
  mOut.line(DisplayText::escaped(subject) + QLatin1String(" = ") + DisplayText::shown(value));
}

void CTextLines::addUnlessEmpty(const QString& subject, const QString& value) {
  if (!value.isEmpty()) add(subject, value);
}

void CTextLines::addLabel(const QString& subject, const QString& label) {
  add(subject, mOut.labels().of(label));
}

void CTextLines::addLabelUnlessEmpty(const QString& subject, const QString& label) {
  if (!label.isEmpty()) addLabel(subject, label);
}

const CLabels& CTextLines::labels() const {
  return mOut.labels();
}

void CTextLines::addHead(const SFileInfo& info, const Show::SHead& head) {
  add(QStringLiteral("file type"), info.typeName);
  addUnlessEmpty(QStringLiteral("version"), info.versionText());
  addUnlessEmpty(QStringLiteral("author"), head.author);
  addUnlessEmpty(QStringLiteral("comment"), head.comment);
}

void CTextLines::addBare(const QString& subject) {
  mOut.line(DisplayText::escaped(subject));
}
