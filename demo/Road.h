#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <vector>

class Application;

/// Walks a road on the real windows, as an operator would: waits until a step can be seen, says so,
/// leaves a screenshot, and does the next thing with keys and clicks.
class Road : public QObject {
    Q_OBJECT

public:
    struct Step {
        QString name;
        std::function<bool()> isSeen;
        QString screenshot = {}; ///< file name without ending; empty for none
        /// May wait at a box, which later steps answer.
        std::function<void()> act = [] {};
        std::chrono::seconds patience{30};
    };

    /// Screenshots go into the folder.
    Road(Application &lukora, const QString &folder);
    /// Plans a further step.
    Road &operator<<(Step step);
    /// Plans one that comes with the answer of a unit, or when the queue lets a message go.
    void await(Step step);
    /// Walks what was planned.
    void start();
    bool isCompleted() const { return completed_; }

    /// A line below the step in what is said.
    static void remark(const QString &text);

private:
    void look();
    void takeScreenshot(const QString &name) const;
    void giveUp();

    Application &lukora_;
    QString folder_;
    std::vector<Step> steps_;
    std::size_t next_ = 0;
    QTimer timer_;
    QElapsedTimer sinceStep_;
    bool completed_ = false;
};
