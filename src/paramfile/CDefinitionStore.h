#pragma once

#include "CDefinitionKeys.h"
#include "CParamDefFile.h"
#include "CParamDefItem.h"
#include "CUniqueList.h"
#include "CXMLMetaData.h"

#include <QMap>
#include <QString>
#include <QVector>

#include <deque>

/// The definitions of a parameter file by name and id, and which of them refer to which.
///
/// Definitions are handed out as pointers, which stay valid until clear(): the store is never
/// implicitly shared, and a definition that is loaded again takes the place of the old one. An edit
/// through such a pointer may make two definitions share a name or an id: a lookup then finds the
/// one that got it last, and a save fails.
class CDefinitionStore {
 public:
  CDefinitionStore() = default;
  /// A store of its own with the same definitions, marked unchanged.
  CDefinitionStore(const CDefinitionStore& other);
  CDefinitionStore& operator=(const CDefinitionStore&) = delete;

  void clear();
  bool isEmpty() const { return mDefinitions.empty(); }
  /// Null for an unknown name.
  const CParamDefItem* find(const QString& name) const { return mKeys.byName(name); }
  /// The definition, whose edits mark this store changed; null for an unknown name.
  CParamDefItem* findForEdit(const QString& name);
  /// Null for an unknown id, and for those that mean "no id".
  const CParamDefItem* findById(quint32 id) const { return mKeys.byId(id); }
  /// By id and then by name.
  QVector<const CParamDefItem*> sorted() const;

  /// Adds a definition whose name is not known, and marks the store changed.
  CParamDefItem* add(const CParamDefItem& definition);
  /// Takes over what a file holds; names and ids that are known become the file's.
  void unite(const CParamDefinitions& definitions);
  /// Holds these definitions alone, and is marked changed.
  void replace(const CParamDefinitions& definitions);
  /// Enters the references of definitions by visibility and unit, by ascending id.
  void updateReferenceIdList(const CParamDefinitions& definitions);
  QList<quint32> referencedBy(quint32 id) const { return mReferences.value(id).list(); }
  bool isReferenced(quint32 id) const { return mReferences.contains(id); }

  bool isChanged() const { return mChanged; }
  void clearChanged() { mChanged = false; }
  const CXMLMetaData& metaData() const { return mMetaData; }
  void setMetaData(const CXMLMetaData& metaData) { mMetaData = metaData; }

 private:
  CParamDefItem* append(const CParamDefItem& definition);

  std::deque<CParamDefItem> mDefinitions;  // which stay where they are
  CDefinitionKeys mKeys;
  QMap<quint32, CUniqueList<quint32>> mReferences;
  CXMLMetaData mMetaData;
  bool mChanged = false;
};
