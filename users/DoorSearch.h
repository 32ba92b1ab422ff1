#pragma once

#include "data/UserSearch.h"

#include <QPointer>
#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

class Clock;
class QFrame;
class QLabel;
class QLineEdit;
class QTableWidget;
class Timer;
struct Module1;

/// A line ("txtSok", the focus proxy) in which a number or a name is looked for on all doors, as
/// one types. The hits stand in a list that lies over what is below the line in the parent, and is
/// there only while it is needed.
class DoorSearch : public QWidget {
    Q_OBJECT
public:
    /// Stored days are shown in dateFormat (Host.h).
    DoorSearch(Module1 &module, Clock &clock, const QString &dateFormat, QWidget *parent);
    ~DoorSearch() override;

signals:
    /// The operator wants to see this one.
    void chosen(const UserHit &hit);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void look();
    void readOn();
    bool goesOn() const;
    void add(const UserHit &hit);
    void showHit(int row, const UserHit &hit);
    void close();
    void place();
    void choose(int row);
    bool keyInLine(int key);
    bool keyInList(int key);
    void focusMoved(QWidget *from, QWidget *to);
    void translate();

    Module1 &module_;
    Clock &clock_;
    const QString dateFormat_;
    std::unique_ptr<Timer> slices_;
    std::optional<UserSearch> search_; ///< under way
    std::vector<UserHit> hits_;        ///< as listed: those that begin so come first
    int beginSo_ = 0;
    QPointer<QWidget> before_; ///< where the focus was before it came here
    QLabel *lblSok_;
    QLineEdit *txtSok_;
    QFrame *list_;
    QTableWidget *lstSok_;
    QLabel *lblTreff_;
};
