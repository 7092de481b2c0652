#pragma once

#include <QRandomGenerator>
#include <QString>

#include <memory>

/// The formats of files seen alike, for whoever treats them all badly.
namespace NFormats {

class CFormat {
 public:
  virtual ~CFormat() = default;
  virtual bool load(const QString& fileName) = 0;
  virtual bool save(const QString& fileName) = 0;
  /// Loads from a buffer, where the format can; else nothing happens.
  virtual bool loadBuffer(const QByteArray& /*bytes*/) { return false; }
  /// What the last load or save told: its result or the line of the fault, and the message.
  virtual QString told() const = 0;
  /// Everything that a file of this format holds.
  virtual QString content() = 0;
  /// The content and all that an application knows beside it.
  virtual QString state() { return content(); }
  /// Adds and changes by chance whatever the format may hold: names and texts of what files
  /// mishandle among it.
  virtual void edit(QRandomGenerator random) = 0;
  /// Whether the content must be the old one after the last load, which failed.
  virtual bool keepsContent() const = 0;
};

enum EFormat { Definitions, Values, Settings, Compensation, Migration };
/// A test file of each format that holds much of it.
constexpr const char* kHeld[] = {
    "definitions/valid/Everything.xpdef", "values/valid/TwoHardwareIds.xparam",
    "settings/valid/types.xml", "compensation/valid/current.xml", "migration/valid/everything.xml"};
std::unique_ptr<CFormat> make(EFormat format);

/// Loads a file and saves it, which must go well and keep everything: what went wrong, or nothing.
/// With a choice it is edited in between.
QString roundTrip(EFormat format, const QString& fileName, const QString& scratch,
                  const quint32* choice = nullptr);

}  // namespace NFormats
