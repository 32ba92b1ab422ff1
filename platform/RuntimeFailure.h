#pragma once

#include <QString>

#include <stdexcept>

/// The one failure of the program: what went wrong, in the words that a message box shows.
/// It never leaves an event handler; Rules.h holds the ways to end it.
class RuntimeFailure : public std::runtime_error {
public:
    explicit RuntimeFailure(const QString &description)
        : std::runtime_error(description.toStdString()), description_(description)
    {
    }
    const QString &description() const { return description_; }

private:
    QString description_;
};
