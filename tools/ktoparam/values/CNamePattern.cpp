#include "CNamePattern.h"

// Names are not paths: a "*" matches "/", too. When a piece of the pattern does not fit, only
// the last "*" takes one more character; another way for those before it would not help. So the
// time grows with the name, whatever the pattern.
bool CNamePattern::matches(const QString& name) const {
  const QVector<uint> characters = name.toUcs4();
  int inPattern = 0;
  int behindStar = -1;  // in the pattern
  int taken = 0;        // up to where that "*" takes the name
  for (int inName = 0; inName < characters.size();) {
    const bool isWithin = inPattern < mCharacters.size();
    const uint wanted = mCharacters.value(inPattern);
    if (isWithin && wanted == '*') {
      behindStar = ++inPattern;
      taken = inName;
    } else if (isWithin && (wanted == '?' || wanted == characters.at(inName))) {
      ++inPattern;
      ++inName;
    } else if (behindStar >= 0) {
      inPattern = behindStar;
      inName = ++taken;
    } else {
      return false;
    }
  }
  while (inPattern < mCharacters.size() && mCharacters.at(inPattern) == '*') ++inPattern;
  return inPattern == mCharacters.size();
}
