#pragma once

#include <QFile>

/// A file made anew, empty; it goes again with the object unless it is kept.
class NewFile {
public:
    /// @throws RuntimeFailure when there is a file of this name, or it cannot be made.
    explicit NewFile(const QString &path);
    ~NewFile();
    NewFile(const NewFile &) = delete;
    NewFile &operator=(const NewFile &) = delete;
    void keep() { kept_ = true; }

private:
    QFile file_;
    bool kept_ = false;
};
