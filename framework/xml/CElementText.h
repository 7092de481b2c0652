#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

/// The text of an element in UTF-8: a piece of the document, valid until that is changed, or put
/// together from several.
class CElementText {
 public:
  CElementText() = default;
  explicit CElementText(std::string_view piece) : mPiece(piece) {}
  explicit CElementText(std::string together)
      : mTogether(std::make_unique<std::string>(std::move(together))) {}

  std::string_view view() const { return mTogether ? *mTogether : mPiece; }

 private:
  std::string_view mPiece;
  std::unique_ptr<std::string> mTogether;  // hardly ever needed
};
