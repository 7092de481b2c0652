#include "CSubjectLines.h"

#include "CLoadedFile.h"
#include "COutput.h"
#include "NDisplayText.h"

void CSubjectLines::add(const QString& subject, const QString& value) {
  mOut.line(NDisplayText::escaped(subject) + QLatin1String(" = ") + NDisplayText::shown(value));
}

void CSubjectLines::addUnlessEmpty(const QString& subject, const QString& value) {
  if (!value.isEmpty()) add(subject, value);
}

const CLabels& CSubjectLines::labels() const {
  return mOut.labels();
}

void CSubjectLines::addHead(const CLoadedFile& loaded) {
  const SHead head = loaded.head();
  add(QStringLiteral("file type"), loaded.info().typeName);
  addUnlessEmpty(QStringLiteral("version"), loaded.info().versionText());
  addUnlessEmpty(QStringLiteral("author"), head.author);
  addUnlessEmpty(QStringLiteral("comment"), head.comment);
}

void CSubjectLines::addBare(const QString& subject) {
  mOut.line(NDisplayText::escaped(subject));
}
