#include "CSubjectLines.h"

#include "CLoadedFile.h"
#include "COutput.h"
#include "NDisplayText.h"

void CSubjectLines::add(const QString& subject, const QString& value) {
  mOut.line(NDisplayText::escaped(mLead + subject) + QLatin1String(" = ") +
            NDisplayText::shown(value));
}

void CSubjectLines::addUnlessEmpty(const QString& subject, const QString& value) {
  if (!value.isEmpty()) add(subject, value);
}

CSubjectLines CSubjectLines::of(const QString& name) const {
  return CSubjectLines(mOut, mLead + name + QLatin1Char('/'));
}

const CLabels& CSubjectLines::labels() const {
  return mOut.labels();
}

void CSubjectLines::addHead(const CLoadedFile& loaded) {
  const SHead head = loaded.head();
  add("file type", loaded.info().typeName);
  addUnlessEmpty("version", loaded.info().writtenVersion);
  addUnlessEmpty("author", head.author);
  addUnlessEmpty("comment", head.comment);
}

void CSubjectLines::addBare(const QString& subject) {
  mOut.line(NDisplayText::escaped(mLead + subject));
}
