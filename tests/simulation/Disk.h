#pragma once

#include "platform/Clock.h"

#include <functional>

/// The disk below the database engine: the engine's own way to files (its default VFS), with faults
/// between. There is one for the process, since the engine has one default.
///
/// What happens to files through Aside (the rules' looks, another PC) knows no faults.
class Disk {
public:
    enum class Fault { None, Full, Failing, ReadOnly };

    static Disk &instance();
    Disk(const Disk &) = delete;
    Disk &operator=(const Disk &) = delete;

    /// Somebody else than the program under test uses files while one of these lives.
    class Aside {
    public:
        Aside() { ++instance().aside_; }
        ~Aside() { --instance().aside_; }
        Aside(const Aside &) = delete;
        Aside &operator=(const Aside &) = delete;
    };

    /// Good order; nothing is awaited any more.
    void mend();
    void set(Fault fault) { fault_ = fault; }
    bool isWell() const { return fault_ == Fault::None && !dead_; }
    /// The process dies within the write of that number from now on, with half of it done: from
    /// there on nothing that it does reaches a file.
    void killAtWrite(int number, std::function<void()> killed);
    /// The same at once.
    void kill() { dead_ = true; }

    /// Called when the engine waits for somebody else's lock, with the time; nothing sleeps.
    std::function<void(milliseconds)> onWait;

    // For the functions that the engine calls.

    bool isDead() const { return dead_ && aside_ == 0; }
    Fault fault() const { return aside_ == 0 ? fault_ : Fault::None; }
    void waited(milliseconds time) const;
    /// True for the write that the process dies in.
    bool isLastWrite();

private:
    Disk();

    Fault fault_ = Fault::None;
    bool dead_ = false;
    int aside_ = 0;
    int writesLeft_ = 0; ///< 0: no death is awaited
    std::function<void()> killed_;
};
