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
    struct Files {
        int master = -1;
        int slave = -1;
        void close();
    };

    void open();
    void forgetNotifiers();
    void removeLink();
    void read();
    void writeWaiting();

    QByteArray link_;
    Events events_;
    Files files_;
    QByteArray device_;
    QByteArray waiting_;
    std::unique_ptr<QSocketNotifier> readable_;
    std::unique_ptr<QSocketNotifier> writable_;
};
