#pragma once

#include "ui/controls/EntryExtent.h"
#include "ui/controls/FlowLayout.h"
#include "ui/controls/VisiblePart.h"

#include <QAbstractItemModel>
#include <QPointer>
#include <QQmlComponent>

namespace glimmet {

/// A flow of the rows of a model, of which it builds only those that are seen or near, so that a list may be
/// as long as its user likes. Rows that are as wide as the flow stand one below the other. The others keep
/// their room: as they were when last built, or as they are estimated. Where an estimate was wrong, the page
/// around scrolls along, so that what is seen stays where it is.
///
/// An item is as large as it stays from the moment when it is complete; what it grows by later moves those
/// below it.
///
/// Built wherever they are: the first row and the last one, where the Tab key comes in; that with the
/// keyboard and its neighbours; those of `kept`; and all of a short list. Items stand among their siblings in
/// the order of their rows.
class LazyFlow : public glimmet::FlowLayout { // Whole, as it is registered under that name.
    Q_OBJECT
    QML_ELEMENT
    Q_CLASSINFO("DefaultProperty", "delegate")
    Q_PROPERTY(QAbstractItemModel *model READ model WRITE setModel NOTIFY modelChanged REQUIRED)
    /// An item that may require "index", the number of its row, and any of the model's roles.
    Q_PROPERTY(QQmlComponent *delegate READ delegate WRITE setDelegate NOTIFY delegateChanged)
    /// Of rows that were never built; null: they are as large as others.
    Q_PROPERTY(glimmet::EntryExtent *estimate READ estimate WRITE setEstimate NOTIFY estimateChanged)
    Q_PROPERTY(QList<int> kept READ kept WRITE setKept NOTIFY keptChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    /// Whether every row is built.
    Q_PROPERTY(bool isWhole READ isWhole NOTIFY countChanged)
    /// Whether what is being built joined the list after the first layout.
    Q_PROPERTY(bool isAdding READ isAdding)

public:
    static constexpr int wholeUpTo = 30;

    explicit LazyFlow(QQuickItem *parent = nullptr);

    QAbstractItemModel *model() const { return m_model; }
    void setModel(QAbstractItemModel *model);
    QQmlComponent *delegate() const { return m_delegate; }
    void setDelegate(QQmlComponent *delegate);
    EntryExtent *estimate() const { return m_estimate; }
    void setEstimate(EntryExtent *estimate);
    QList<int> kept() const { return m_kept; }
    void setKept(const QList<int> &rows);
    int count() const { return static_cast<int>(m_rows.size()); }
    bool isWhole() const { return count() <= wholeUpTo; }
    bool isAdding() const { return m_isAdding; }

    /// The item of a row, which stands in its place; null where there is no such row. `itemAt` builds it.
    Q_INVOKABLE QQuickItem *itemAt(int row);
    Q_INVOKABLE QQuickItem *builtItemAt(int row) const;

signals:
    void modelChanged();
    void delegateChanged();
    void estimateChanged();
    void keptChanged();
    void countChanged();
    /// The row left the model; its item goes next.
    void itemRemoved(int index, QQuickItem *item);

protected:
    QList<Occupant> occupants() const override;
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    void geometryChange(const QRectF &geometry, const QRectF &before) override;
    void updatePolish() override;

private:
    struct Row {
        QQuickItem *item = nullptr;
        QSizeF size{ 0, 0 }; ///< while there is no item; empty: still to be estimated
        bool isNew = false;
    };

    void enter(QQuickWindow *window);
    void insertRows(int first, int last);
    void removeRows(int first, int last);
    void refreshRows(int first, int last, const QList<int> &roles);
    void reset();
    void renumberFrom(int row);

    void forgetSizes();
    void estimateSizes();
    QSizeF estimateOf(int row) const;

    bool isReady() const;
    void placeAll();
    void build(int row);
    /// Builds those that are not built, and gives everything its place; false where all were.
    bool buildAll(const QList<int> &rows);
    void release(int row);
    QList<int> rowsNear(qreal margin) const;
    QList<int> rowsBuiltAnywhere() const;
    void buildNeighbours();

    int rowOf(const QQuickItem *item) const;
    int focusedRow() const;
    int firstRowBelow(qreal y) const;
    qreal topOf(int row) const;

    QPointer<QAbstractItemModel> m_model;
    QPointer<QQmlComponent> m_delegate;
    QPointer<EntryExtent> m_estimate;
    QList<int> m_kept;
    QList<Row> m_rows;
    QSizeF m_typicalSize; ///< of the row that was built last
    VisiblePart m_part{ *this };
    QMetaObject::Connection m_focus;
    bool m_isAdding = false;
    bool m_isBuilding = false;
};

} // namespace glimmet
