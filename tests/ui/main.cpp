// The window tests' own main: one application for all of them, and no window left over after any.

#include <QApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>
#include <memory>

namespace {

class TestsApart : public testing::EmptyTestEventListener {
    // A program that was told to end before it ran would close every dialog at once; an empty run forgets it.
    void OnTestStart(const testing::TestInfo& /*test*/) override {
        QTimer::singleShot(0, [] { QCoreApplication::exit(0); });
        QApplication::exec();
    }
    // Windows without a parent escape the leak checkers.
    void OnTestEnd(const testing::TestInfo& /*test*/) override {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (const auto* const window : QApplication::topLevelWidgets())
            ADD_FAILURE() << "left over: " << window->metaObject()->className() << " \""
                          << window->objectName().toStdString() << "\"";
    }
};

// What the toolkit warns of is a fault; but the platform without a screen lacks a few things.
void TakeMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type >= QtWarningMsg && type != QtInfoMsg && !message.startsWith("This plugin does not support"))
        ADD_FAILURE() << message.toStdString();
}

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The toolkit's dialogs keep their settings where the user's are.
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    // Whether a browser stands on the machine must make no difference.
    qputenv("KORVANE_BROWSER", "none");
    testing::InitGoogleTest(&argc, argv);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    // What one test's last window asks for must not end the next test's.
    QApplication::setQuitOnLastWindowClosed(false);
    // Tests are quicker than a double click; the one of the interval sets it itself.
    QApplication::setDoubleClickInterval(0);
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
    if (!QFontMetrics(QApplication::font()).inFont('A')) {
        qCritical("no usable font: every text would be a row of boxes");
        return 1;
    }
    qInstallMessageHandler(TakeMessage);
    testing::UnitTest::GetInstance()->listeners().Append(std::make_unique<TestsApart>().release());
    return RUN_ALL_TESTS();
}
