#pragma once

#include "browsers/RecordBrowser.h"
#include "data/Connection.h"
#include "data/Module1.h"
#include "support/FakeMachine.h"
#include "support/TestDatabase.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

/// A database and an operator of level "6".
struct ScreenWorld : testing::Test, FakeMachine {
    ScreenWorld() { database.use(module); }

    std::string rows(const QString &sql) { return database.rows(sql).join(u';').toStdString(); }
    void run(const QString &sql) { database.look().run(sql); }

    TestDatabase database;
    Module1 module;
};

/// With one of the table screens, driven by keys.
struct BrowserWorld : ScreenWorld {
    BrowserTools tools() { return {module, person, clock, settings}; }
    /// Opens a screen as the menu does.
    template <class Screen, class... Parts> Screen &open(Parts &&...parts)
    {
        auto made = std::make_unique<Screen>(std::forward<Parts>(parts)...);
        Screen &opened = *made;
        screen = std::move(made);
        opened.load();
        opened.show();
        QApplication::setActiveWindow(&opened);
        // From here on Qt's own tester watches the grid's rows.
        new QAbstractItemModelTester(
            grid().model(), QAbstractItemModelTester::FailureReportingMode::Fatal, &opened);
        clock.run(10ms);
        return opened;
    }
    template <class Control> Control &control(const char *name)
    {
        return *screen->findChild<Control *>(QString::fromLatin1(name));
    }
    QTableView &grid() { return control<QTableView>("grdDataGrid"); }
    QString status() { return control<QLabel>("lblStatus").text(); }
    int row() { return grid().currentIndex().row(); }
    void standOn(int row, int column = 0)
    {
        grid().setCurrentIndex(grid().model()->index(row, column));
    }
    /// Presses the button and lets the clock go on.
    void clickAndWait(const char *button, milliseconds wait)
    {
        click(button);
        clock.run(wait);
    }
    void click(const char *button)
    {
        QTest::mouseClick(&control<QAbstractButton>(button), Qt::LeftButton);
    }
    void key(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&grid(), static_cast<Qt::Key>(key), modifiers);
    }
    /// Types into the cell that the grid stands on, as an operator does.
    void type(int row, int column, const QString &text, Qt::Key end = Qt::Key_Return)
    {
        standOn(row, column);
        QTest::keyClick(&grid(), Qt::Key_F2);
        auto *cell = qobject_cast<QLineEdit *>(grid().indexWidget(grid().currentIndex()));
        ASSERT_NE(cell, nullptr) << "not to be typed in";
        cell->setText(text);
        QTest::keyClick(cell, end);
        QCoreApplication::processEvents(); // the cell closes behind the key
    }
    void clickHeading(int column, milliseconds wait = 1s)
    {
        QHeaderView &heads = *grid().horizontalHeader();
        QTest::mouseClick(heads.viewport(), Qt::LeftButton, {},
                          {heads.sectionViewportPosition(column) + 5, heads.height() / 2});
        clock.run(wait);
    }
    /// A column of the grid from the top, the first rows of it.
    std::string column(int column, int rows = 9)
    {
        QStringList cells;
        for (int row = 0; row < std::min(rows, grid().model()->rowCount()); ++row) {
            cells += grid().model()->index(row, column).data().toString();
        }
        return cells.join(u'|').toStdString();
    }
    std::string headings()
    {
        QStringList texts;
        for (int i = 0; i < grid().model()->columnCount(); ++i) {
            if (!grid().isColumnHidden(i)) {
                texts += grid().model()->headerData(i, Qt::Horizontal).toString();
            }
        }
        return texts.join(u'|').toStdString();
    }
    std::unique_ptr<RecordBrowser> screen;
};
