#pragma once

#include "CDomData.h"

#include <QByteArray>

/// Writes a document's arena: attributes in their order, one blank of indentation per level, "\n"
/// line ends. Texts stand without indentation, so they are read as they were written.
class CXmlWriter {
 public:
  enum EError { NoError, TooDeep, TooLarge };

  explicit CXmlWriter(const CDomData& data) : mData(data) {}

  /// The document in UTF-16, little endian with a byte order mark, or in UTF-8 without one.
  QByteArray write(bool utf16);
  EError error() const { return mError; }

 private:
  template <class Sink>
  void writeTree(Sink& sink);
  template <class Sink>
  void putLeaf(Sink& sink, const SDomNode& node);
  template <class Sink>
  void openElement(Sink& sink, const SDomNode& element, int depth);
  template <class Sink>
  void closeElement(Sink& sink, const SDomNode& element, int depth);
  bool holdsText(const SDomNode& element) const;

  const CDomData& mData;
  EError mError = NoError;
};
