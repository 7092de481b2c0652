// Prints the manual page: ktoparamManPage TEMPLATE JSON-DESCRIPTION
#include "Commands.h"
#include "NManPage.h"

#include <QFile>

#include <optional>

namespace {

std::optional<QString> read(const char* fileName) {
  QFile file(QString::fromLocal8Bit(fileName));
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QString::fromUtf8(file.readAll());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  std::optional<QString> page = read(argv[1]);
  const std::optional<QString> json = read(argv[2]);
  if (!page || !json) return 1;
  page->replace(QLatin1String("@VERSION@"), QLatin1String(KTO_VERSION));
  page->replace(QLatin1String("@COMMANDS@\n"), NManPage::commands(allCommands()));
  page->replace(QLatin1String("@JSON@\n"), NManPage::fromMarkdown(*json));
  QFile out;
  const QByteArray bytes = page->toUtf8();
  return out.open(stdout, QIODevice::WriteOnly) && out.write(bytes) == bytes.size() && out.flush()
             ? 0
             : 1;
}
