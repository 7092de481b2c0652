#pragma once

#include <QList>
#include <QVector>

#include <memory>
#include <optional>

/// A tree node that owns its payload and its children; deleting it deletes the whole subtree.
/// Bad indices and unknown nodes are answered with false or null and change nothing.
template <typename T>
class CTreeNode {
 public:
  CTreeNode() = default;
  CTreeNode(const CTreeNode&) = delete;
  CTreeNode& operator=(const CTreeNode&) = delete;

  virtual ~CTreeNode() {
    mData.reset();
    qDeleteAll(mChildren);
  }

  /// A deep copy of plain CTreeNode<T> without a parent, owned by the caller.
  virtual CTreeNode<T>* clone() const {
    auto copy = std::make_unique<CTreeNode<T>>();
    copy->setData(dataRef());
    for (const CTreeNode<T>* each : mChildren) copy->addChild(each->clone());
    return copy.release();
  }

  virtual T data() const { return dataRef(); }
  virtual T* dataPtr() const { return mData ? &*mData : nullptr; }  ///< null without a payload
  virtual const T& dataRef() const { return mData ? *mData : empty(); }
  virtual CTreeNode<T>* parent() const { return mParent; }
  virtual QList<CTreeNode<T>*> children() const { return mChildren.toList(); }
  virtual CTreeNode<T>* child(int index) const { return mChildren.value(index, nullptr); }
  virtual int childCount() const { return mChildren.size(); }

  /// Position among the siblings, found by a search; 0 for a root, -1 when the parent does not
  /// list this node.
  virtual int row() const { return mParent ? mParent->indexOf(this) : 0; }

  virtual bool isValid() const { return mData.has_value(); }

  virtual void setData(const T& data) { mData = data; }

  /// Sets the pointer only; the parents' lists stay as they are.
  virtual void setParent(CTreeNode<T>* parent) { mParent = parent; }

  /// Appends and owns a node, which must not be null nor have a parent.
  virtual void addChild(CTreeNode<T>* child) {
    child->setParent(this);
    mChildren.append(child);
  }

  virtual bool insertChild(CTreeNode<T>* child, int index) {
    if (!child || index < 0 || index > childCount()) return false;
    child->setParent(this);
    mChildren.insert(index, child);
    return true;
  }

  /// Hands the child over to the caller.
  virtual CTreeNode<T>* takeChild(CTreeNode<T>* child) {
    const int index = indexOf(child);
    if (index < 0) return nullptr;
    mChildren.removeAt(index);
    child->setParent(nullptr);
    return child;
  }

  virtual bool removeChild(CTreeNode<T>* child) { return removeChild(indexOf(child)); }

  virtual bool removeChild(int index) {
    if (index < 0 || index >= childCount()) return false;
    delete mChildren.takeAt(index);
    return true;
  }

  virtual bool removeChildren(int first, int count) {
    if (first < 0 || static_cast<qint64>(first) + count > childCount()) return false;
    if (count < 1) return true;
    const QVector<CTreeNode<T>*> removed = mChildren.mid(first, count);
    mChildren.erase(mChildren.begin() + first, mChildren.begin() + first + count);
    qDeleteAll(removed);
    return true;
  }

  virtual bool removeAllChildren() {
    qDeleteAll(mChildren);
    mChildren.clear();
    return true;
  }

 protected:
  void moveData(T&& data) { mData = std::move(data); }

 private:
  // From both ends, since children are mostly removed in their order or in reverse.
  int indexOf(const CTreeNode<T>* child) const {
    for (int front = 0, back = childCount() - 1; front <= back; ++front, --back) {
      if (mChildren.at(front) == child) return front;
      if (mChildren.at(back) == child) return back;
    }
    return -1;
  }

  const T& empty() const {
    static const T emptyValue{};
    return emptyValue;
  }

  mutable std::optional<T> mData;  // a constant node hands it out for writing, too
  CTreeNode<T>* mParent = nullptr;
  QVector<CTreeNode<T>*> mChildren;  // no QList, which grows when its first are removed
};
