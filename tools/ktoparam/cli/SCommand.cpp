#include "SCommand.h"

#include <algorithm>

namespace {

template <class List, class Condition>
auto firstOf(const List& list, const Condition& condition) {
  const auto found = std::find_if(list.begin(), list.end(), condition);
  return found == list.end() ? nullptr : &*found;
}

}  // namespace

const SArgument* SCommand::argumentAt(int place) const {
  if (place < arguments.size()) return &arguments.at(place);
  return !arguments.isEmpty() && arguments.last().mayRepeat() ? &arguments.last() : nullptr;
}

const SOption* SCommand::option(const QString& dashedName) const {
  return firstOf(options, [&dashedName](const SOption& each) {
    return dashedName == QLatin1String("--") + each.name ||
           dashedName == QLatin1Char('-') + each.letter;
  });
}

const SCommand* SCommand::find(const QVector<SCommand>& commands, const QStringList& words) {
  return firstOf(commands, [&words](const SCommand& command) {
    const QStringList name = command.words();
    return words.mid(0, name.size()) == name;
  });
}
