#include <gmock/gmock.h>

#include <QApplication>

// Forms need an application. They are tested on a platform without a screen.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleMock(&argc, argv);
    const QApplication aplicacion(argc, argv);
    return RUN_ALL_TESTS();
}
