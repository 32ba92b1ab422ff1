#pragma once

#include <QLabel>

/// One panel of the status bar: plain text, cut with an ellipsis where the room ends and whole in
/// the tool tip.
class StatusPanel : public QLabel {
    Q_OBJECT

public:
    explicit StatusPanel(const QString &name, QWidget *parent = nullptr);
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;
};
