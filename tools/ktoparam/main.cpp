#include "CCommandTable.h"
#include "CLanguage.h"
#include "CMessageBoardHelper.h"
#include "COutput.h"

#include <QCoreApplication>

#include <optional>

int main(int argc, char* argv[]) {
  const QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("ktoparam"));
  QCoreApplication::setApplicationVersion(QStringLiteral(KTO_VERSION));

  const QStringList words = QCoreApplication::arguments().mid(1);
  // A program reads JSON, and gets the same whoever started it.
  std::optional<CLanguage> language;
  if (!words.contains(QLatin1String("--json"))) language.emplace();

  COutput out(stdout, stderr);
  // What is critical is also the reason of a failed operation, and told with that.
  CMessageBoardHelper::setHandler(
      [&out](CMessageBoardHelper::EMessageKind kind, const QString& text) {
        if (kind == CMessageBoardHelper::Warning) out.message(text);
      });
  const EExitStatus status = CCommandTable().run(words, out);
  CMessageBoardHelper::setHandler({});
  return out.finish() ? status : ExitFile;
}
