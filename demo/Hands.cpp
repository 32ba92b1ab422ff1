#include "Hands.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>

#include <algorithm>

QWidget *window(const char *name)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find_if(windows, [name](const QWidget *each) {
        return each->isVisible() && each->objectName() == QLatin1StringView(name);
    });
    return found == windows.end() ? nullptr : *found;
}

bool isInFront(const char *name)
{
    const QWidget *asked = window(name);
    return asked != nullptr && asked->isActiveWindow();
}

QMessageBox *question()
{
    return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
}

void click(QWidget *button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

void fill(QLineEdit *field, const QString &text)
{
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, text);
    QTest::keyClick(field, Qt::Key_Tab);
}

void type(const QString &text)
{
    for (const QChar character : text) {
        // Each key may move the focus, as the first one in a cell does.
        QWidget *has = QApplication::focusWidget();
        if (has == nullptr) {
            return;
        }
        if (character == u'\t') {
            QTest::keyClick(has, Qt::Key_Tab);
        } else {
            QTest::keyClicks(has, QString(character));
        }
    }
}

void choose(QComboBox *list, const QString &entry)
{
    list->setFocus();
    QTest::keyClicks(list, entry);
}

void chooseFromMenu(const char *menu, const char *entry)
{
    auto *popup = control<QMenu>("frmMain", menu);
    auto *bar = control<QMenuBar>("frmMain", "menubar");
    auto *wanted = control<QAction>("frmMain", entry);
    if (popup == nullptr || bar == nullptr || wanted == nullptr) {
        return;
    }
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(popup->menuAction()).center());
    QTest::mouseClick(popup, Qt::LeftButton, {}, popup->actionGeometry(wanted).center());
}

void chooseAll()
{
    auto *tabs = control<QTabBar>("frmMain", "TabStrip1");
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tabs->count() - 1).center());
}

int rowWith(const QAbstractItemView *grid, const QStringList &texts)
{
    const QAbstractItemModel *model = grid == nullptr ? nullptr : grid->model();
    for (int row = 0; model != nullptr && row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column) {
            cells.append(model->index(row, column).data().toString().trimmed());
        }
        if (std::ranges::all_of(texts, [&](const QString &text) { return cells.contains(text); })) {
            return row;
        }
    }
    return -1;
}

void clickRow(QAbstractItemView *grid, int row, bool twice)
{
    const QPoint place = grid->visualRect(grid->model()->index(row, 0)).center();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, place);
    if (twice) {
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, place);
    }
}
