#pragma once

#include "CDomData.h"

#include <QByteArray>

#include <string>
#include <string_view>

/// Writes a document's arena: attributes in their order, one blank of indentation per level, "\n"
/// line ends. Texts are not indented, so they are read as they were written.
class CXmlWriter {
 public:
  enum EError { NoError, TooDeep, TooLarge };

  explicit CXmlWriter(const CDomData& data) : mData(data) {}

  /// The document in UTF-16, little endian with a byte order mark, or in UTF-8 without one. Empty
  /// after an error.
  QByteArray write(bool utf16);
  EError error() const { return mError; }

 private:
  void writeTree();
  void putLeaf(const SDomNode& node);
  void openElement(const SDomNode& element, int depth);
  void closeElement(const SDomNode& element, int depth);
  void putEscaped(std::string_view text, bool inAttribute);
  void put(std::string_view text);
  bool holdsText(const SDomNode& element) const;

  const CDomData& mData;
  EError mError = NoError;
  std::string mText;  ///< in UTF-8
  size_t mLongestText = 0;
};
