#pragma once

#include "SCommand.h"

#include <QDate>
#include <QString>

class QJsonObject;
struct SFileInfo;

/// What `show` does for each kind of file.
namespace Show {

/// The Head of a file.
struct SHead {
  QDate date;
  QString author;
  QString comment;
};

/// One line with type, version and Head.
QString headLine(const SFileInfo& info, const SHead& head);
/// The same as the beginning of a JSON object.
QJsonObject headJson(const QString& fileName, const SFileInfo& info, const SHead& head);

EExitStatus definitions(const CInvocation& invocation, COutput& out);
EExitStatus values(const CInvocation& invocation, COutput& out);
EExitStatus settings(const CInvocation& invocation, COutput& out);
EExitStatus compensation(const CInvocation& invocation, COutput& out);

}  // namespace Show
