#pragma once

#include <QString>
#include <QWidget>

class Application;
class QAbstractButton;
class QAbstractItemView;
class QComboBox;
class QLineEdit;
class QMessageBox;

// What an operator does with keys and clicks, and what there is to be seen.

/// The window of this name, when it is on show; null otherwise.
QWidget *window(const char *name);
/// Whether the window of this name is on show and has the keys.
bool isInFront(const char *name);
/// The box that asks something; null without one.
QMessageBox *question();

/// A control of a window that is on show.
template <class Control> Control *control(const char *windowName, const char *name)
{
    QWidget *on = window(windowName);
    return on == nullptr ? nullptr : on->findChild<Control *>(QString::fromUtf8(name));
}

void click(QWidget *button);
/// Replaces the text of a field, and goes on to the next one.
void fill(QLineEdit *field, const QString &text);
/// Keys for whatever has them; a tab is the key Tab.
void type(const QString &text);
/// Takes the entry that begins so, by keys.
void choose(QComboBox *list, const QString &entry);
/// Opens a menu of the main screen and clicks an entry.
void chooseFromMenu(const char *menu, const char *entry);

/// The last tab of the main screen's users, "Alle".
void chooseAll();

/// Row of the grid in which all these texts stand; -1 without one.
int rowWith(const QAbstractItemView *grid, const QStringList &texts);
void clickRow(QAbstractItemView *grid, int row, bool twice = false);
