#include "tests/ui/PointerProbe.h"

#include <QTest>

namespace glimmet {

void PointerProbe::click(QQuickWindow *window, const QPointF &place)
{
    QTest::mouseClick(window, Qt::LeftButton, {}, place.toPoint());
}

void PointerProbe::clickAgain(QQuickWindow *window, const QPointF &place)
{
    // What the release before has added to keep the two apart.
    QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;
    click(window, place);
}

} // namespace glimmet
