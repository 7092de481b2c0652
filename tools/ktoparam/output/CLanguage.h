#pragma once

#include <QTranslator>

/// The language of the tool's words: that of the environment, where there is a translation. Numbers
/// are written alike in all languages. It lasts as long as the object, which needs an application.
class CLanguage {
 public:
  CLanguage();

 private:
  QTranslator mLibrary;
  QTranslator mTool;
};
