#include "ui/controls/LazyFlow.h"

#include "ui/controls/DelegateItems.h"

#include <QQuickWindow>
#include <QScopedValueRollback>

#include <algorithm>

namespace glimmet {

namespace {

/// How far beyond the view, in heights of the view, rows are built, and kept once they are.
constexpr qreal builtBeyond = 0.25;
constexpr qreal keptBeyond = 0.4;

} // namespace

LazyFlow::LazyFlow(QQuickItem *parent)
    : FlowLayout(parent)
{
    connect(&m_part, &VisiblePart::moved, this, &QQuickItem::polish);
    connect(this, &LazyFlow::keptChanged, this, &QQuickItem::polish);
    connect(this, &FlowLayout::spacingChanged, this, &QQuickItem::polish);
    enter(window()); // The base class has taken the parent before this one could hear of it.
}

void LazyFlow::setModel(QAbstractItemModel *model)
{
    if (m_model == model)
        return;
    if (m_model)
        m_model->disconnect(this);
    m_model = model;
    if (m_model) {
        using Model = QAbstractItemModel;
        const auto insert = [this](const QModelIndex &, int first, int last) { insertRows(first, last); };
        const auto remove = [this](const QModelIndex &, int first, int last) { removeRows(first, last); };
        const auto refresh = [this](const QModelIndex &first, const QModelIndex &last,
                                 const QList<int> &roles) { refreshRows(first.row(), last.row(), roles); };
        connect(m_model, &Model::rowsInserted, this, insert);
        connect(m_model, &Model::rowsRemoved, this, remove);
        connect(m_model, &Model::dataChanged, this, refresh);
        connect(m_model, &Model::modelReset, this, &LazyFlow::reset);
        connect(m_model, &Model::layoutChanged, this, &LazyFlow::reset);
        connect(m_model, &Model::rowsMoved, this, &LazyFlow::reset);
    }
    reset();
    emit modelChanged();
}

void LazyFlow::setDelegate(QQmlComponent *delegate)
{
    if (m_delegate == delegate)
        return;
    m_delegate = delegate;
    reset();
    emit delegateChanged();
}

void LazyFlow::setEstimate(EntryExtent *estimate)
{
    if (m_estimate == estimate)
        return;
    if (m_estimate)
        m_estimate->disconnect(this);
    m_estimate = estimate;
    if (m_estimate)
        connect(m_estimate, &EntryExtent::changed, this, &LazyFlow::forgetSizes);
    forgetSizes();
    emit estimateChanged();
}

void LazyFlow::setKept(const QList<int> &rows)
{
    if (m_kept == rows)
        return;
    m_kept = rows;
    emit keptChanged();
}

void LazyFlow::componentComplete()
{
    FlowLayout::componentComplete();
    buildAll(rowsBuiltAnywhere());
}

void LazyFlow::itemChange(ItemChange change, const ItemChangeData &data)
{
    FlowLayout::itemChange(change, data);
    if (change == ItemSceneChange)
        enter(data.window);
}

void LazyFlow::enter(QQuickWindow *window)
{
    m_part.enter(window);
    disconnect(m_focus);
    if (window == nullptr)
        return;
    m_focus = connect(window, &QQuickWindow::activeFocusItemChanged, this, &LazyFlow::buildNeighbours);
}

void LazyFlow::geometryChange(const QRectF &geometry, const QRectF &before)
{
    FlowLayout::geometryChange(geometry, before);
    if (geometry.width() != before.width())
        forgetSizes();
}

// The rows of the model

void LazyFlow::reset()
{
    if (!m_rows.isEmpty())
        removeRows(0, count() - 1);
    if (m_model && m_model->rowCount() > 0)
        insertRows(0, m_model->rowCount() - 1);
}

void LazyFlow::insertRows(int first, int last)
{
    m_rows.insert(first, last - first + 1, Row{ nullptr, {}, isLaidOut() });
    renumberFrom(last + 1);
    emit countChanged();
    buildAll(rowsBuiltAnywhere());
    polish();
}

void LazyFlow::removeRows(int first, int last)
{
    const QList<Row> gone = m_rows.mid(first, last - first + 1);
    m_rows.remove(first, gone.size());
    renumberFrom(first);
    emit countChanged();
    for (qsizetype i = 0; i < gone.size(); ++i) {
        if (QQuickItem *item = gone.at(i).item) {
            emit itemRemoved(first + static_cast<int>(i), item);
            DelegateItems::discard(*item);
        }
    }
    polish();
}

void LazyFlow::refreshRows(int first, int last, const QList<int> &roles)
{
    for (int row = first; row <= last; ++row) {
        if (QQuickItem *item = builtItemAt(row))
            DelegateItems::refresh(*item, *m_model, row, roles);
        else if (m_estimate)
            m_rows[row].size = estimateOf(row);
    }
}

void LazyFlow::renumberFrom(int row)
{
    for (; row < count(); ++row) {
        if (m_rows.at(row).item != nullptr)
            DelegateItems::renumber(*m_rows.at(row).item, row);
    }
}

// Their sizes

void LazyFlow::forgetSizes()
{
    for (Row &row : m_rows)
        row.size = {};
    const auto built =
        std::find_if(m_rows.cbegin(), m_rows.cend(), [](const Row &row) { return row.item != nullptr; });
    m_typicalSize = built == m_rows.cend() ? QSizeF() : built->item->size();
    polish();
}

void LazyFlow::estimateSizes()
{
    for (int row = 0; row < count(); ++row) {
        if (m_rows.at(row).item == nullptr && m_rows.at(row).size.isEmpty())
            m_rows[row].size = estimateOf(row);
    }
}

QSizeF LazyFlow::estimateOf(int row) const
{
    if (!m_estimate)
        return m_typicalSize;
    const int role = m_model->roleNames().key(m_estimate->role().toUtf8(), Qt::DisplayRole);
    return m_estimate->of(m_model->index(row, 0).data(role).toString(), width());
}

QList<FlowLayout::Occupant> LazyFlow::occupants() const
{
    QList<Occupant> occupants;
    occupants.reserve(m_rows.size());
    for (const Row &row : m_rows)
        occupants.append({ row.item, row.item == nullptr ? row.size : row.item->size() });
    return occupants;
}

// Building

bool LazyFlow::isReady() const
{
    return isComponentComplete() && m_model && m_delegate && width() > 0 && !m_isBuilding;
}

QQuickItem *LazyFlow::builtItemAt(int row) const
{
    return row >= 0 && row < count() ? m_rows.at(row).item : nullptr;
}

QQuickItem *LazyFlow::itemAt(int row)
{
    if (row < 0 || row >= count())
        return nullptr;
    buildAll({ row });
    return m_rows.at(row).item;
}

void LazyFlow::build(int row)
{
    const QScopedValueRollback building(m_isBuilding, true);
    const QScopedValueRollback adding(m_isAdding, m_rows.at(row).isNew);
    QQuickItem *item = DelegateItems::begin(*m_delegate, *m_model, row, *this);
    if (item == nullptr)
        return;
    const auto next = std::find_if(
        m_rows.cbegin() + row + 1, m_rows.cend(), [](const Row &one) { return one.item != nullptr; });
    if (next != m_rows.cend())
        item->stackBefore(next->item);
    m_delegate->completeCreate();
    m_rows[row] = { item, {}, false };
    m_typicalSize = item->size();
}

bool LazyFlow::buildAll(const QList<int> &rows)
{
    QList<int> missing = rows;
    missing.removeIf([this](int row) { return builtItemAt(row) != nullptr || row < 0 || row >= count(); });
    if (missing.isEmpty() || !isReady())
        return false;
    // Without any size there is nothing that could have its place.
    if (!m_estimate && m_typicalSize.isEmpty())
        build(missing.takeFirst());
    placeAll();
    const int anchor = firstRowBelow(m_part.area().top());
    const qreal top = topOf(anchor);
    for (const int row : std::as_const(missing)) {
        // Some are asked for twice.
        if (builtItemAt(row) == nullptr)
            build(row);
    }
    placeAll();
    const qreal shift = topOf(anchor) - top;
    if (isLaidOut() && shift != 0)
        m_part.scrollBy(shift);
    return true;
}

void LazyFlow::placeAll()
{
    estimateSizes();
    layOut();
}

void LazyFlow::release(int row)
{
    QQuickItem *item = m_rows.at(row).item;
    m_rows[row] = { nullptr, item->size(), false };
    DelegateItems::discard(*item);
}

void LazyFlow::updatePolish()
{
    if (!isReady())
        return;
    buildAll(rowsBuiltAnywhere());
    estimateSizes();
    FlowLayout::updatePolish();
    // What is built may be lower than it was estimated, and more be near.
    while (buildAll(rowsNear(builtBeyond))) {}
    QList<int> wanted = rowsNear(keptBeyond) + rowsBuiltAnywhere();
    std::sort(wanted.begin(), wanted.end());
    for (int row = 0; row < count(); ++row) {
        m_rows[row].isNew = false;
        if (m_rows.at(row).item != nullptr && !std::binary_search(wanted.cbegin(), wanted.cend(), row))
            release(row);
    }
}

QList<int> LazyFlow::rowsNear(qreal margin) const
{
    const QRectF area = m_part.area();
    QList<int> rows;
    if (area.isEmpty())
        return rows;
    const qreal beyond = margin * area.height();
    for (int row = firstRowBelow(area.top() - beyond); row < count() && topOf(row) < area.bottom() + beyond;
        ++row)
        rows.append(row);
    return rows;
}

QList<int> LazyFlow::rowsBuiltAnywhere() const
{
    QList<int> rows;
    if (isWhole()) {
        for (int row = 0; row < count(); ++row)
            rows.append(row);
        return rows;
    }
    const int focused = focusedRow();
    if (focused >= 0)
        rows = { focused - 1, focused, focused + 1 };
    return rows + m_kept + QList<int>{ 0, count() - 1 };
}

// The Tab key leads to what is there.
void LazyFlow::buildNeighbours()
{
    if (focusedRow() >= 0)
        buildAll(rowsBuiltAnywhere());
}

// Where the rows are

int LazyFlow::rowOf(const QQuickItem *item) const
{
    const auto row =
        std::find_if(m_rows.cbegin(), m_rows.cend(), [item](const Row &one) { return one.item == item; });
    return row == m_rows.cend() ? -1 : static_cast<int>(row - m_rows.cbegin());
}

int LazyFlow::focusedRow() const
{
    const QQuickItem *item = window() == nullptr ? nullptr : window()->activeFocusItem();
    while (item != nullptr && item->parentItem() != this)
        item = item->parentItem();
    return item == nullptr ? -1 : rowOf(item);
}

int LazyFlow::firstRowBelow(qreal y) const
{
    const auto row = std::partition_point(
        places().cbegin(), places().cend(), [y](const QRectF &place) { return place.bottom() <= y; });
    return static_cast<int>(row - places().cbegin());
}

qreal LazyFlow::topOf(int row) const
{
    return row < places().size() ? places().at(row).top() : implicitHeight();
}

} // namespace glimmet
