#pragma once

#include <QWidget>

/// Two small arrows one above the other, which step whatever stands beside them. Each arrow takes
/// the keyboard's focus; Up and Down work on either, and holding one repeats it.
class UpDown : public QWidget {
    Q_OBJECT

public:
    explicit UpDown(QWidget *parent = nullptr);

signals:
    void up();
    void down();

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
