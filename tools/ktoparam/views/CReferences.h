#pragma once

#include "CLabels.h"
#include "CParamValueText.h"
#include "ICParameterFile.h"
#include "SValueView.h"

#include <map>
#include <optional>

/// How definitions are called that others refer to. Each is looked up once, since one may be the
/// limit of thousands, and its name long.
class CReferences {
 public:
  CReferences(const ICParameterFile& file, const CLabels& labels)
      : mFile(file), mLabels(labels), mViews(file, labels) {}

  const CLabels& labels() const { return mLabels; }

  /// The name of a definition; nothing when there is none of this id.
  std::optional<QString> find(unsigned int id) {
    const auto [known, isNew] = mNames.try_emplace(id);
    if (isNew) {
      const CParamDefItem definition = mFile.paramDef(id);
      if (definition.valid()) known->second = mLabels.of(definition.name());
    }
    return known->second;
  }
  /// The same, or the id as a text.
  QString name(unsigned int id) { return find(id).value_or(QString::number(id)); }
  QStringList names(const QList<unsigned int>& ids) {
    QStringList names;
    for (const unsigned int id : ids) names.append(name(id));
    return names;
  }
  /// The name of the first choice that is the value; empty when there is none.
  QString choice(unsigned int id, qint64 value) {
    const auto [known, isNew] = mChoices.try_emplace(id);
    if (isNew && find(id)) {
      const CParamDefItem definition = mFile.paramDef(id);
      for (const auto& each : CParamValueText::choices(definition, CParamValueText::English))
        if (!each.name.isEmpty()) known->second.try_emplace(each.value, mLabels.of(each.name));
    }
    const auto found = known->second.find(value);
    return found == known->second.end() ? QString() : found->second;
  }
  QString unit(const CParamDefItem& definition) { return mViews.unit(definition, kNoSubDevice); }

 private:
  static constexpr quint8 kNoSubDevice = 0;  // there are no values whose units could differ

  const ICParameterFile& mFile;
  const CLabels& mLabels;
  CValueViews mViews;
  std::map<unsigned int, std::optional<QString>> mNames;
  std::map<unsigned int, std::map<qint64, QString>> mChoices;
};
