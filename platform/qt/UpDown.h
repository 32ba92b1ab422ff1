#pragma once

#include <QWidget>

class QToolButton;

/// Two small arrows one above the other, which step whatever stands beside them. Each arrow takes
/// the keyboard's focus; Up and Down work on either, and holding one repeats it.
class UpDown : public QWidget {
    Q_OBJECT
    /// What a screen reader calls the arrows, and their tool tips.
    Q_PROPERTY(QString upName READ upName WRITE setUpName)
    Q_PROPERTY(QString downName READ downName WRITE setDownName)

public:
    explicit UpDown(QWidget *parent = nullptr);

    QString upName() const;
    QString downName() const;
    void setUpName(const QString &name);
    void setDownName(const QString &name);

signals:
    void up();
    void down();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QToolButton *up_;
    QToolButton *down_;
};
