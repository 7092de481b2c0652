#include "CCommandTable.h"
#include "CLanguage.h"
#include "CMessageBoardHelper.h"
#include "COutput.h"
#include "Commands.h"
#include "NFileMessage.h"
#include "Tool.h"

#include <QCoreApplication>
#include <QFile>

#include <new>
#include <optional>

namespace {

/// False, with a message, when a word does not mean what it says: its bytes name another file or
/// are another value.
bool areExact(char** bytes, const QStringList& words, COutput& out) {
  for (const QString& word : words) {
    if (QFile::encodeName(word) == *bytes++) continue;
    out.message(word, Tool::tr("this is not valid text in the encoding of the locale."));
    return false;
  }
  return true;
}

}  // namespace

int main(int argc, char* argv[]) {
  const QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName("ktoparam");
  QCoreApplication::setApplicationVersion(QStringLiteral(KTO_VERSION));

  const QStringList words = QCoreApplication::arguments().mid(1);
  // A program reads JSON, and gets the same whoever started it.
  std::optional<CLanguage> language;
  if (!words.contains(QLatin1String("--json"))) language.emplace();

  COutput out(stdout, stderr);
  // What is critical is also the reason of a failed operation, and told with that.
  CMessageBoardHelper::setHandler(
      [&out](CMessageBoardHelper::EMessageKind kind, const QString& text) {
        if (kind != CMessageBoardHelper::Warning) return;
        const auto [file, reason] = NFileMessage::parts(text);
        file.isEmpty() ? out.message(reason) : out.message(file, reason);
      });
  EExitStatus status = ExitFile;
  try {
    status = areExact(argv + 1, words, out)
                 ? CCommandTable(allCommands(), completeCommands().first()).run(words, out)
                 : ExitUsage;
  } catch (const std::bad_alloc&) {
    // What was taken is free again. No file is half written: a save begins when all of it is there.
    out.message(Tool::tr("there is not enough memory for these files."));
  }
  CMessageBoardHelper::setHandler({});
  return out.finish() ? status : ExitFile;
}
