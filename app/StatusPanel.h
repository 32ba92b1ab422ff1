#pragma once

#include <QLabel>

#include <functional>

/// One panel of the status bar: plain text, cut with an ellipsis where the room ends and whole in
/// the tool tip, with what there is to say beside it.
class StatusPanel : public QLabel {
    Q_OBJECT

public:
    explicit StatusPanel(const QString &name, QWidget *parent = nullptr);
    QSize minimumSizeHint() const override;
    /// Asked whenever the tool tip is about to be shown.
    void setWords(std::function<QString()> words) { words_ = std::move(words); }

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;

private:
    std::function<QString()> words_ = [] { return QString(); };
};
