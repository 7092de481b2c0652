#pragma once

#include "CParamFileElement.h"
#include "TestFiles.h"

#include <QStringList>
#include <QTemporaryDir>

/// A folder of motor files, which tests fill as they need.
class CMotorFolder {
 public:
  QString path() const { return mFolder.path(); }
  QString filePath(const QString& name) const { return mFolder.filePath(name); }

  /// Writes a file and returns its path; an empty one when that fails.
  QString write(const QString& name, const QByteArray& content) const {
    return NTestFiles::write(filePath(name), content) ? filePath(name) : QString();
  }

  CParamFileElement element(const QString& name) const {
    return {NktoGlobal::FILE_TYPE_MOTOR_PARAMETERS, {path(), name}};
  }

  /// Writes a file of these motors.
  CParamFileElement put(const QString& name, const QStringList& motors,
                        const QString& comment = QString()) const {
    write(name, content(motors, comment));
    return element(name);
  }

  /// A motor file with one parameter, in groups nested as deep as asked for, for each motor.
  static QByteArray content(const QStringList& motors, const QString& comment = QString(),
                            const QString& version = "1.0", int depth = 1) {
    QString text = QStringLiteral("<LumoMotorParameters version=\"%1\">").arg(version);
    text += QStringLiteral("<Head><Comment>%1</Comment></Head>").arg(comment);
    for (const QString& motor : motors) {
      text +=
          QStringLiteral("<Data hardwareId=\"%1\"><SubDevice id=\"0\"><Type>Drive</Type>")
              .arg(motor) +
          QStringLiteral("<Name>Motor</Name>") +
          QStringLiteral("<Group><Name>Motor</Name>").repeated(depth) +
          QStringLiteral("<Param id=\"4010\"><Name>PolePairs</Name><Value>0x4</Value></Param>") +
          QStringLiteral("</Group>").repeated(depth) + QStringLiteral("</SubDevice></Data>");
    }
    text += QStringLiteral("</LumoMotorParameters>\n");
    return text.toUtf8();
  }

 private:
  QTemporaryDir mFolder;
};
