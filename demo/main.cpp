#include "Road.h"
#include "Roads.h"

#include "app/Desktop.h"

#include <QStringList>

#include <cstdio>
#include <memory>

namespace {

void plan(Road &road, Application &lukora, const QString &name)
{
    const bool sets = name != u"registration";
    logIn(road, lukora);
    if (sets) {
        enterDoors(road);
    }
    if (name == u"setup" || name == u"both") {
        setUpDoor(road, lukora);
    }
    if (sets) {
        chooseFirstDoor(road);
    }
    if (name == u"registration" || name == u"both") {
        registerUser(road, lukora);
    }
    leave(road, lukora);
}

} // namespace

int main(int argc, char **argv)
{
    static const QStringList roads{u"doors"_qs, u"setup"_qs, u"registration"_qs, u"both"_qs};
    const QString name = argc == 3 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (!roads.contains(name)) {
        std::fputs("Usage: lukora-road doors|setup|registration|both FOLDER-FOR-SCREENSHOTS\n",
                   stderr);
        return 2;
    }
    std::unique_ptr<Road> road;
    const int status = runOnDesktop(argc, argv, [&](Application &lukora) {
        road = std::make_unique<Road>(lukora, QString::fromLocal8Bit(argv[2]));
        plan(*road, lukora, name);
        road->start();
    });
    const bool completed = road && road->isCompleted();
    std::puts(completed ? "The road was completed." : "The road was not completed.");
    return completed && status == 0 ? 0 : 1;
}
