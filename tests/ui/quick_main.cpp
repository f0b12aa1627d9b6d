#include "tests/ui/AccessibleProbe.h"
#include "tests/ui/ClipboardProbe.h"
#include "tests/ui/KeyboardProbe.h"
#include "tests/ui/LookSwitch.h"
#include "tests/ui/PointerProbe.h"
#include "tests/ui/TickerFixture.h"
#include "tests/ui/UpdateScenes.h"
#include "ui/panel/PanelAccessibility.h"

#include <QAccessible>
#include <QQuickWindow>
#include <QtQml/qqml.h>
#include <QtQuickTest/quicktest.h>

namespace glimmet {

/// Prepares the runs as the program prepares its panel: painted in software. Each test makes its own world.
class QuickTestSetup : public QObject {
    Q_OBJECT

public slots:
    void applicationAvailable()
    {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        QAccessible::setActive(true);
        installPanelAccessibility();
        qmlRegisterType<TickerFixture>("GlimmetTests", 1, 0, "TickerFixture");
        qmlRegisterType<LookSwitch>("GlimmetTests", 1, 0, "LookSwitch");
        qmlRegisterType<AccessibleProbe>("GlimmetTests", 1, 0, "AccessibleProbe");
        qmlRegisterType<ClipboardProbe>("GlimmetTests", 1, 0, "ClipboardProbe");
        qmlRegisterType<KeyboardProbe>("GlimmetTests", 1, 0, "KeyboardProbe");
        qmlRegisterType<PointerProbe>("GlimmetTests", 1, 0, "PointerProbe");
        qmlRegisterType<UpdateScenes>("GlimmetTests", 1, 0, "UpdateScenes");
    }
};

} // namespace glimmet

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QTEST_SET_MAIN_SOURCE_PATH
    glimmet::QuickTestSetup setup;
    return quick_test_main_with_setup(argc, argv, "glimmet", QUICK_TEST_SOURCE_DIR, &setup);
}

#include "quick_main.moc"
