#pragma once

#include "simulator/LinePort.h"

#include <QSocketNotifier>

#include <memory>

/// A pseudo-terminal in raw mode under a name of its own: programs open the link like a serial
/// port, as often as they like. The link is removed at the end.
class PtyPort : public LinePort {
public:
    /// A link that is there already is replaced; anything else of that name is not.
    /// @throws RuntimeFailure when there is no pseudo-terminal, or the link cannot be made.
    PtyPort(const QString &link, Events events);
    ~PtyPort() override;

    QString name() const override;
    void write(const QByteArray &bytes) override;
    void drop() override;

private:
    void open();
    void close();
    void read();
    void writeWaiting();

    QByteArray link_;
    Events events_;
    int master_ = -1;
    int slave_ = -1;
    QByteArray device_;
    QByteArray waiting_;
    std::unique_ptr<QSocketNotifier> readable_;
    std::unique_ptr<QSocketNotifier> writable_;
};
