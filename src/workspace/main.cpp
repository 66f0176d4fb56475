#include "workspace/OspraApp.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    ospra::prepareApplication();
    QApplication application(argc, argv);
    ospra::OspraApp app;
    if (!app.openWindow()) {
        std::fputs("ospra: the window could not be made; is a Qt Quick module missing?\n", stderr);
        return 1;
    }
    return QApplication::exec();
}
