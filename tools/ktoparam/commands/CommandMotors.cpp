#include "Command.h"

namespace {

/// The file that a motor is in.
struct SMotor {
  QString file;
  QString comment;
};

/// The motors of one file.
struct SMotorFile {
  QStringList names;
  QString comment;
};

/// Nothing, with a message, when the file does not hold motors.
std::optional<SMotorFile> readMotors(const QString& fileName, COutput& out) {
  CLoadedFile loaded(out);
  if (!loaded.load(fileName, SFileInfo::Values)) return {};
  if (loaded.info().type != NktoGlobal::FILE_TYPE_MOTOR_PARAMETERS) {
    out.message(fileName, loaded.info().refusal(
                              Tool::tr("A file of motors is needed (LumoMotorParameters).")));
    return {};
  }
  return SMotorFile{loaded.file().hardwareIds(), loaded.file().comment()};
}

/// A name that another file has, too, is reported: the last file counts.
void addMotors(const QString& fileName, const SMotorFile& file, COutput& out,
               QMap<QString, SMotor>& motors) {
  for (const QString& name : file.names) {
    if (motors.contains(name)) {
      out.message(fileName, Tool::tr("motor \"%1\" is also in %2; this file counts.")
                                .arg(name, motors.value(name).file));
    }
    motors.insert(name, {fileName, file.comment});
  }
}

EExitStatus showMotors(const CInvocation& invocation, COutput& out) {
  EExitStatus status = ExitDone;
  QMap<QString, SMotor> motors;
  const QStringList files = invocation.argumentsFrom(0);
  const auto read = [&](int i) { return readMotors(files.at(i), out); };
  inOrder(files.size(), out, read, [&](int i, const std::optional<SMotorFile>& file) {
    if (file)
      addMotors(files.at(i), *file, out, motors);
    else
      status = ExitFile;
    return true;
  });
  QJsonArray list;
  CTable table({Tool::tr("MOTOR"), Tool::tr("FILE"), Tool::tr("COMMENT")});
  for (auto it = motors.cbegin(); it != motors.cend(); ++it) {
    list.append(QJsonObject{{"name", out.labels().of(it.key())},
                            {"file", it->file},
                            {"comment", out.labels().of(it->comment)}});
    table.addRow({out.labels().shown(it.key()), NDisplayText::shown(it->file),
                  out.labels().shownOrNothing(it->comment)});
  }
  invocation.print(table, {{"motors", list}}, out);
  return status;
}

}  // namespace

QVector<SCommand> motorsCommands() {
  return {
      {"motors",
       Tool::tr("List the motors that files hold."),
       Tool::tr("The hardware ids of a file of motors are the names of the motors. When several "
                "files hold a motor of one name, the last one counts."),
       {{"FILE", Tool::tr("Files of motors."), EWord::File, SArgument::OneOrMore}},
       {NOptions::json()},
       {"motors Motors.xparam"},
       showMotors}};
}
