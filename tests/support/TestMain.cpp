#include <QApplication>

#include <gmock/gmock.h>

// Caches that the font and screen libraries keep to the end of the process.
extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig\nleak:libQt6XcbQpa\nleak:libdbus-1\n";
}

// Every test program runs in a QApplication, so that widgets and Qt Core parts work in all of them,
// and offscreen, unless the environment asks for a screen.
int main(int argc, char **argv)
{
    testing::InitGoogleMock(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) {
        return RUN_ALL_TESTS();
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
