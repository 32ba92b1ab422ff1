#pragma once

#include <functional>

class Application;

/// Runs the program on the machine's own clock, screen, ports and settings, until it ends; gives
/// the status of the process. What is to happen beside it is prepared just before the start.
int runOnDesktop(int argc, char **argv, const std::function<void(Application &)> &prepare);
