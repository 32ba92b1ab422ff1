#include <QApplication>

#include <gmock/gmock.h>

// Every test program runs in a QApplication, so that widgets and Qt Core parts work in all of them.
int main(int argc, char **argv)
{
    testing::InitGoogleMock(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
