#include "CCommandTable.h"
#include "CMessageBoardHelper.h"
#include "COutput.h"

#include <QCoreApplication>

int main(int argc, char* argv[]) {
  const QCoreApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("ktoparam"));
  QCoreApplication::setApplicationVersion(QStringLiteral(KTO_VERSION));

  COutput out(stdout, stderr);
  // What is critical is also the reason of a failed operation, and told with that.
  CMessageBoardHelper::setHandler(
      [&out](CMessageBoardHelper::EMessageKind kind, const QString& text) {
        if (kind == CMessageBoardHelper::Warning) out.message(text);
      });
  const EExitStatus status = CCommandTable().run(QCoreApplication::arguments().mid(1), out);
  CMessageBoardHelper::setHandler({});
  return out.finish() ? status : ExitFile;
}
