#pragma once

#include "CDomData.h"

#include <QByteArray>

#include <memory>

/// Reads plain XML, as this library writes it, several times as fast as the parser: UTF-8 or
/// UTF-16, an XML declaration, elements, attributes, texts with references to characters, and empty
/// comments. It takes only what the parser takes, and makes the same document of it. Whatever else
/// it meets, rare or wrong, it leaves to the parser, which has all the messages.
class CXmlPlainReader {
 public:
  /// Null for a document that is left to the parser. Throws std::bad_alloc.
  static std::unique_ptr<CDomData> read(const QByteArray& bytes);

 private:
  CXmlPlainReader(CDomData& data, bool isFromUtf16);

  // Each reads one thing at the present place, and is false where it is not as it is meant.
  bool readDocument();
  bool readDeclaration();
  bool readTree();
  bool readStartTag();
  bool readEndTag();
  bool readEmptyComment();
  bool readAttribute(quint32 element);
  bool readText();
  bool readPiece(const char* begin, char end, SDomText& piece);
  bool readReference(std::string& text);
  bool readCharacterReference(std::string& text);
  bool skipRareOfText();
  bool skipRareOfAttribute();
  bool skipCharacter();
  bool skip(std::string_view expected);
  void skipSpace();
  std::string_view readName();

  bool isDone() const { return mAt == mEnd; }
  SDomText pieceFrom(const char* begin) const;

  CDomData& mData;
  const bool mIsFromUtf16;
  const char* const mBegin;  ///< of the text in UTF-8, which ends in a zero
  const char* const mEnd;
  const char* mAt;
  quint32 mLine = 1;
  std::vector<quint32> mOpen;  ///< the open elements, innermost last
  std::string mDecoded;        ///< the text with references that is being read
};
