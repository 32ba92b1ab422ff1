#pragma once

#include <QWidget>

#include <memory>

class Clock;
class Timer;

namespace Ui {
class frmSplash;
}

/// The title, the version and the marks, for three seconds; and again for a wait behind them.
class frmSplash : public QWidget {
    Q_OBJECT

public:
    explicit frmSplash(Clock &clock);
    ~frmSplash() override;

    /// What is waited for, on a line of its own. With a text the screen stands, or comes again,
    /// until it is closed.
    void tell(const QString &text);

protected:
    void showEvent(QShowEvent *event) override;

private:
    std::unique_ptr<Ui::frmSplash> ui_;
    std::unique_ptr<Timer> Timer1_;
};
