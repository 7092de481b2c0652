#pragma once

#include "CParamDefFile.h"
#include "CParamDefItem.h"
#include "CUniqueList.h"
#include "CXMLMetaData.h"

#include <QMap>
#include <QString>
#include <QVector>

/// The definitions of a parameter file by name and id, and which of them refer to which.
///
/// Definitions are handed out as pointers, which stay valid until clear(): the store is never
/// implicitly shared, and a definition that is loaded again takes the place of the old one.
class CDefinitionStore {
 public:
  CDefinitionStore() = default;
  /// A store of its own with the same definitions, marked unchanged.
  CDefinitionStore(const CDefinitionStore& other);
  CDefinitionStore& operator=(const CDefinitionStore&) = delete;

  void clear();
  bool isEmpty() const { return mByName.empty(); }
  /// Null for an unknown name.
  const CParamDefItem* find(const QString& name) const;
  /// The definition, whose edits mark this store changed; null for an unknown name.
  CParamDefItem* findForEdit(const QString& name);
  /// Empty for an unknown id.
  QString nameById(quint32 id) const;
  /// By id and then by name.
  QVector<const CParamDefItem*> sorted() const;

  /// Adds a definition whose name is not known, and marks the store changed.
  CParamDefItem* add(const CParamDefItem& definition);
  /// Takes over what a file holds; names and ids that are known become the file's.
  void unite(const CParamDefinitions& definitions, const CNamesById& nameById);
  /// Enters the references of definitions by visibility and unit, by ascending id.
  void updateReferenceIdList(const CParamDefinitions& definitions);
  QList<quint32> referencedBy(quint32 id) const { return mReferences.value(id).list(); }
  bool isReferenced(quint32 id) const { return mReferences.contains(id); }

  bool isChanged() const { return mChanged; }
  void clearChanged() { mChanged = false; }
  const CXMLMetaData& metaData() const { return mMetaData; }
  void setMetaData(const CXMLMetaData& metaData) { mMetaData = metaData; }

 private:
  CParamDefItem* store(const QString& name, const CParamDefItem& definition);

  CParamDefinitions mByName;  // never shared, so the pointers stay
  CNamesById mNameById;
  QMap<quint32, CUniqueList<quint32>> mReferences;
  CXMLMetaData mMetaData;
  bool mChanged = false;
};
