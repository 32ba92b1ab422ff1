#include "Road.h"

#include "app/Desktop.h"

#include <cstdio>
#include <memory>

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fputs("Usage: lukora-road FOLDER-FOR-SCREENSHOTS\n", stderr);
        return 2;
    }
    std::unique_ptr<Road> road;
    const int status = runOnDesktop(argc, argv, [&](Application &lukora) {
        road = std::make_unique<Road>(lukora, QString::fromLocal8Bit(argv[1]));
    });
    const bool completed = road && road->isCompleted();
    std::puts(completed ? "The road was completed." : "The road was not completed.");
    return completed && status == 0 ? 0 : 1;
}
