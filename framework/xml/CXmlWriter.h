#pragma once

#include "CDomData.h"
#include "NXmlLimits.h"

#include <QByteArray>

#include <string>
#include <string_view>
#include <vector>

/// Writes a document's arena: attributes in their order, one blank of indentation per level, "\n"
/// line ends. Texts are not indented, so they are read as they were written; comments are, where
/// elements are their neighbours.
class CXmlWriter {
 public:
  enum EError { NoError, TooDeep, TooLarge };

  explicit CXmlWriter(const CDomData& data);

  /// The document in UTF-16, little endian with a byte order mark, or in UTF-8 without one. Empty
  /// after an error.
  QByteArray write(bool utf16);
  EError error() const { return mError; }

 private:
  /// "<Name" and "</Name>\n"
  struct STag {
    std::string begin;
    std::string end;
  };

  void writeTree();
  void putLeaf(const SDomNode& node);
  void openElement(const SDomNode& element, bool isLaidOut, int depth);
  void closeElement(const SDomNode& element, bool isLaidOut, int depth);
  void putEscaped(std::string_view text, bool inAttribute);
  void indent(int depth);
  void put(std::string_view text);
  bool growFor(size_t size);
  bool holdsElements(const SDomNode& element) const;

  const CDomData& mData;
  std::vector<STag> mTags;  ///< by the number of the name
  EError mError = NoError;
  QByteArray mText;  ///< in UTF-8, with room behind its end
  char* mEnd = nullptr;
  int mLongestText = 0;
};
