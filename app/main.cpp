#include "app/Desktop.h"

int main(int argc, char **argv)
{
    return runOnDesktop(argc, argv, [](Application &) {});
}
