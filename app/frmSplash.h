#pragma once

#include <QWidget>

#include <memory>

class Clock;
class Timer;

namespace Ui {
class frmSplash;
}

/// The title, the version and the marks, for three seconds.
class frmSplash : public QWidget {
    Q_OBJECT

public:
    explicit frmSplash(Clock &clock);
    ~frmSplash() override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    std::unique_ptr<Ui::frmSplash> ui_;
    std::unique_ptr<Timer> Timer1_;
};
