#pragma once

#include "NXmlText.h"

#include <QString>

#include <string>
#include <string_view>
#include <utility>

/// A text of a node in UTF-8, as the document had it: a piece of the memory in which the node
/// itself lies, or, once it was edited, in memory of its own. A copy has its own. A lone surrogate,
/// which a QString may hold, is kept in three bytes.
class CNodeText {
 public:
  CNodeText() = default;  ///< null
  explicit CNodeText(const QString& text) {
    std::string utf8;
    NXmlText::appendUtf8(text, utf8);
    if (!text.isNull()) own(utf8);
  }
  /// A piece of memory that outlives the object.
  static CNodeText pieceOf(std::string_view text) {
    CNodeText piece;
    piece.mText = text.data();
    piece.mSize = static_cast<quint32>(text.size());
    return piece;
  }
  CNodeText(const CNodeText& other) {
    if (!other.isNull()) own(other.view());
  }
  CNodeText(CNodeText&& other) noexcept { swap(other); }
  CNodeText& operator=(CNodeText other) noexcept {
    swap(other);
    return *this;
  }
  ~CNodeText() {
    if (mIsOwn) delete[] mText;
  }

  bool isNull() const { return mText == nullptr; }
  std::string_view view() const { return {mText, mSize}; }  ///< valid until the next assignment
  QString toQString() const { return isNull() ? QString() : NXmlText::toQString(view()); }

 private:
  void own(std::string_view text) {
    char* const copy = new char[text.size()];
    text.copy(copy, text.size());
    *this = pieceOf({copy, text.size()});
    mIsOwn = true;
  }
  void swap(CNodeText& other) noexcept {
    std::swap(mText, other.mText);
    std::swap(mSize, other.mSize);
    std::swap(mIsOwn, other.mIsOwn);
  }

  const char* mText = nullptr;
  quint32 mSize = 0;
  bool mIsOwn = false;
};
