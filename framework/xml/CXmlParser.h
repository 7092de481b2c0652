#pragma once

#include "CDomData.h"
#include "NUtf16.h"

#include <expat.h>

#include <QByteArray>
#include <QCoreApplication>

#include <memory>

/// Feeds a document's arena from bytes: expat with this tool chain's rules on top. One object
/// reads one text.
class CXmlParser {
  Q_DECLARE_TR_FUNCTIONS(CXmlParser)

 public:
  enum EExtent { Whole, HeadOnly, RootOnly };

  CXmlParser(CDomData& data, EExtent extent);

  /// On failure error is "Line N: reason." or a reason without a line. Throws std::bad_alloc.
  bool parse(const QByteArray& bytes, QString& error);

 private:
  struct SHandlers;

  bool decodeAndRun(const QByteArray& bytes);
  bool run(const QByteArray& bytes, const char* encoding);
  bool runWithoutDoctype(const char* encoding);
  void start(const char* encoding);
  void installHandlers();
  QString reasonOf(XML_Error code) const;
  QString withOpenTag(const QString& text) const;

  // What the parser reports.
  void declaration(const char* encoding);
  void doctype(bool hasInternalSubset, bool hasExternalId);
  void startElement(const char* tag, const char** attributes);
  void endElement();
  void characters(std::string_view text);
  void startCData();
  void endCData();
  void otherNode();

  void stop();
  void closeText();
  void keepBlankText();
  bool fail(const QString& reason);
  bool failAt(int line, const QString& reason);
  bool failWithoutLine(const QString& message);
  int line();
  int countLinesTo(qint64 position);

  CDomData& mData;
  const EExtent mExtent;
  std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> mParser;
  QByteArray mInput;  ///< what the parser reads
  NUtf16::EOrder mUtf16Order = NUtf16::None;
  bool mHasUtf8Mark = false;
  qint64 mCountedTo = 0;  ///< position up to which lines are counted
  int mCountedLine = 1;
  std::vector<quint32> mOpen;  ///< the open elements, innermost last
  SDomText mText;              ///< character data since the last node
  bool mTextIsBlank = true;
  bool mStopped = false;  ///< by this class: because of an error, or since all is read
  bool mOutOfMemory = false;
  qint64 mPrologEnd = 0;    ///< position behind the last comment before the root element
  qint64 mDoctypeEnd = -1;  ///< position of the end of a declaration with an external id
  bool mDoctypeTakenOut = false;
  QString mError;
};
