#pragma once

#include "doors/frmKeyProperties.h"
#include "support/World.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

/// An operator's hands on the configuration of a door.
struct Hands {
    Hands(Module1 &module, ScriptedOperator &operating, Clock &clock)
        : screen(module, operating, clock), operating_(operating)
    {
    }
    void open()
    {
        screen.load();
        screen.show();
        QApplication::setActiveWindow(&screen);
    }
    template <class Control> Control &control(const char *name, int index)
    {
        return *screen.findChild<Control *>(u"%1_%2"_qs.arg(QLatin1String(name)).arg(index));
    }
    QLineEdit &field(int index) { return control<QLineEdit>("KeyTXT", index); }
    QPushButton &button(int index) { return control<QPushButton>("Command1", index); }
    QComboBox &list(int index) { return control<QComboBox>("Combo1", index); }
    void type(int index, const QString &text)
    {
        field(index).setFocus();
        field(index).selectAll();
        field(index).insert(text);
    }
    void choose(int index, int entry)
    {
        list(index).setCurrentIndex(entry);
        emit list(index).activated(entry);
    }
    void chooseModel(int index) { control<QRadioButton>("KeyType", index).click(); }
    /// The command is that of a function mode, which alone is shown.
    void press(int index, Answer answer = Answer::Ok, const QString &command = {})
    {
        operating_.answers(
            u"Ny instilling (%1) blir sendt til nøkkelenhet"_qs.arg(button(index).text() + command),
            answer);
        button(index).click();
    }
    /// Of UpDown1: 0 for the one that points up, 1 for the other.
    void clickArrow(int arrow)
    {
        screen.findChild<QWidget *>(u"UpDown1"_qs)
            ->findChildren<QAbstractButton *>()[arrow]
            ->click();
    }
    void step(Qt::Key key) { QTest::keyClick(&screen, key, Qt::ControlModifier); }
    /// Indices of the buttons that can be seen, and "+" with the lists.
    std::string shownButtons()
    {
        QStringList shown;
        for (int i = 0; i < 22; ++i) {
            const auto *found = screen.findChild<QPushButton *>(u"Command1_%1"_qs.arg(i));
            if (found != nullptr && found->isVisibleTo(&screen)) {
                shown += QString::number(i);
            }
        }
        const bool label = screen.findChild<QWidget *>(u"Label1_14"_qs)->isVisibleTo(&screen);
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(list(i).isVisibleTo(&screen), label) << "with its label";
        }
        return shown.join(u' ').toStdString() + (label ? " +" : "");
    }

    frmKeyProperties screen;

private:
    ScriptedOperator &operating_;
};
