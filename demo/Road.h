#pragma once

#include <QDateTime>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>
#include <vector>

class Application;
class QWidget;

/// Walks the road of one registration on the real window, as an operator would: waits until a
/// step can be seen, says so, leaves a screenshot, and does the next thing with keys and clicks.
class Road : public QObject {
    Q_OBJECT

public:
    /// Screenshots go into the folder.
    Road(Application &lukora, const QString &folder);
    bool isCompleted() const { return completed_; }

private:
    struct Step {
        QString name;
        std::function<bool()> isSeen;
        QString screenshot; ///< file name without ending; empty for none
        std::function<void()> act;
    };

    void planSteps();
    void look();
    void giveUp();
    void takeScreenshot(const QString &name) const;
    QWidget *window(const char *name) const;
    template <class Control> Control *control(const char *name) const;
    void type(const char *field, const QString &text) const;
    /// Clicks the last tab, "Alle", which also refills the grid.
    void chooseAll() const;
    bool gridShows(const QString &number, const QString &status) const;

    Application &lukora_;
    QString folder_;
    std::vector<Step> steps_;
    std::size_t next_ = 0;
    QTimer timer_;
    QElapsedTimer sinceStep_;
    bool completed_ = false;
};
