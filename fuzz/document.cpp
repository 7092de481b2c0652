// A document: read as it is, to the end of its Head, in the other encodings and by way of Qt's DOM.

#include "CDomDoc.h"
#include "Finding.h"

#include <QDomDocument>
#include <QTextCodec>

namespace {

QByteArray written(const CDomDoc& document) {
  QString error;
  const QByteArray bytes = document.toByteArray(QStringLiteral("UTF-8"), error);
  NFuzz::require(!bytes.isEmpty(), error);
  return bytes;
}

void requireSameInUtf16(const QByteArray& bytes, const QByteArray& expected, bool isAccepted) {
  const QString text = QString::fromUtf8(bytes);
  if (bytes.contains("encoding") || text.toUtf8() != bytes) return;
  for (const char* encoding : {"UTF-16LE", "UTF-16BE"}) {
    QTextEncoder encoder(QTextCodec::codecForName(encoding), QTextCodec::IgnoreHeader);
    CDomDoc document;
    QString error;
    const bool done = document.setContent(encoder.fromUnicode(QChar(0xFEFF) + text), error);
    NFuzz::require(done == isAccepted, QString("another outcome in UTF-16: ") + error);
    NFuzz::require(!done || written(document) == expected, "another document in UTF-16");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
  CDomDoc document;
  CDomDoc head;
  QString error;
  const bool done = document.setContent(bytes, error);
  NFuzz::require(done || !error.isEmpty(), "no message");
  NFuzz::require(head.setHead(bytes, error) || !done, "the Head fails where the whole does not");
  const QByteArray expected = done ? written(document) : QByteArray();
  requireSameInUtf16(bytes, expected, done);
  if (!done) return 0;

  QDomDocument qt;
  QDomElement parent = qt.createElement(QStringLiteral("parent"));
  document.documentElement().toDom(parent);
  const CDomDoc again = CDomDoc::fromDom(parent.firstChildElement());
  NFuzz::require(again.documentElement().text() == document.documentElement().text(),
                 "another text through Qt's DOM");
  NFuzz::require(document.setContent(expected, error), "what was written is refused: " + error);
  return 0;
}
