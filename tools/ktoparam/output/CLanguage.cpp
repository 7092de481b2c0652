#include "CLanguage.h"

#include <QCoreApplication>
#include <QLocale>

namespace {

// What the tool shows of Qt's own texts, to be translated with the tool's.
[[maybe_unused]] constexpr const char* kQtTexts[] = {
    QT_TRANSLATE_NOOP("QIODevice", "Permission denied"),
    QT_TRANSLATE_NOOP("QIODevice", "Too many open files"),
    QT_TRANSLATE_NOOP("QIODevice", "No such file or directory"),
    QT_TRANSLATE_NOOP("QIODevice", "No space left on device"),
};

void install(QTranslator& translator, const QString& name) {
  const QString folder =
      QCoreApplication::applicationDirPath() + QStringLiteral("/" KTO_TRANSLATIONS);
  // By its name: the system's own locale asks for other languages than that of messages, too.
  const QLocale locale(QLocale::system().name());
  if (translator.load(locale, name, "_", folder)) QCoreApplication::installTranslator(&translator);
}

}  // namespace

CLanguage::CLanguage() {
  install(mLibrary, "ktoParameter");
  install(mTool, "ktoparam");
}
