#include "platform/qt/QtOperator.h"
#include "platform/Clock.h"
#include "support/VirtualClock.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

QWidget *dialogue()
{
    return QApplication::activeModalWidget();
}
QMessageBox *box()
{
    return qobject_cast<QMessageBox *>(dialogue());
}

struct Questions : testing::Test {
    Answer ask(const QString &text) { return person.messageBox(text, {}, Buttons::OkCancel); }

    VirtualClock clock;
    QtOperator person{clock};
};

} // namespace

TEST_F(Questions, TakeTextsAsTheyStand)
{
    clock.after(100ms, [] {
        EXPECT_EQ(box()->textFormat(), Qt::PlainText);
        EXPECT_EQ(box()->text(), u"\n******\nModem <b>not</b> found!!!");
        box()->button(QMessageBox::Ok)->click();
    });
    EXPECT_EQ(ask(u"\r******\rModem <b>not</b> found!!!"_qs), Answer::Ok);
}

TEST_F(Questions, ShowABusyPointerAsLongAsAnybodyIsBusy)
{
    int modem = 0;
    int list = 0;
    for (const auto &[who, busy, isShown] : {std::tuple{&modem, true, true},
                                             {&list, true, true},
                                             {&list, true, true},
                                             {&list, false, true},
                                             {&modem, false, false}}) {
        person.setBusy(who, busy);
        EXPECT_EQ(QGuiApplication::overrideCursor() != nullptr, isShown);
    }
}

TEST_F(Questions, VanishWhenTheProgramEnds)
{
    clock.after(100ms, [&] { EXPECT_THROW(ask(u"Indre"_qs), ProgramEnds); });
    clock.after(200ms, [&] { clock.end(); });
    EXPECT_THROW(person.inputBox(u"Ytre"_qs, {}, {}), ProgramEnds);
    EXPECT_EQ(dialogue(), nullptr);
}

TEST_F(Questions, AreCancelledWhenWithdrawn)
{
    Answer inner = Answer::Ok;
    clock.after(100ms, [&] { inner = ask(u"Indre"_qs); });
    clock.after(200ms, [&] { person.withdraw(); });
    EXPECT_EQ(person.inputBox(u"Ytre"_qs, {}, u"5"_qs), u"");
    EXPECT_EQ(inner, Answer::Cancel);
    EXPECT_EQ(dialogue(), nullptr);
}

TEST_F(Questions, OfferThePresetForTypingAndGiveNothingWhenCancelled)
{
    clock.after(100ms, [] {
        auto *field = dialogue()->findChild<QLineEdit *>();
        EXPECT_EQ(field->selectedText(), u"5");
        QTest::keyClicks(field, u"12"_qs);
        QTest::keyClick(field, Qt::Key_Return);
    });
    EXPECT_EQ(person.inputBox(u"Velg"_qs, u"Com Port"_qs, u"5"_qs), u"12");
    clock.after(100ms, [] { QTest::keyClick(dialogue(), Qt::Key_Escape); });
    EXPECT_EQ(person.inputBox(u"Velg"_qs, {}, u"5"_qs), QString());
}

TEST_F(Questions, AskBeforeAFileIsOverwritten)
{
    const QTemporaryDir folder;
    QFile old(folder.filePath(u"dører.csv"_qs));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    QStringList suggested;
    const auto type = [&](const QString &name) {
        auto *field = dialogue()->findChild<QLineEdit *>(u"fileNameEdit"_qs);
        suggested.append(field->text());
        QApplication::setActiveWindow(dialogue());
        field->setFocus();
        field->setText(name);
        QTest::keyClick(field, Qt::Key_Return);
    };
    clock.after(100ms, [&] { type(u"dører"_qs); });
    clock.after(200ms, [&] {
        EXPECT_TRUE(box()->text().contains(old.fileName()));
        box()->button(QMessageBox::Cancel)->click();
    });
    clock.after(300ms, [&] { type(u"nye"_qs); });
    const QString filter = u"CSV (*.csv *.txt)"_qs;
    const QString start = folder.filePath(u"liste.csv"_qs);
    EXPECT_EQ(person.chooseNewFile(start, filter), folder.filePath(u"nye.csv"_qs));
    EXPECT_EQ(suggested, (QStringList{u"liste.csv"_qs, u"dører.csv"_qs}));
    clock.after(100ms, [] { dialogue()->close(); });
    EXPECT_EQ(person.chooseNewFile(old.fileName(), filter), QString());
}

TEST_F(Questions, SpeakTheLanguageOfTheCountryFitTheScreenAndCountAsCancelledWhenClosed)
{
    for (const auto &[code, cancel, failure, locale, folder] :
         {std::tuple{u"45"_qs, u"Annuller"_qs, u"Teksten er ikke et tal"_qs, u"da_DK"_qs,
                     u"Søg i:"_qs},
          {u"46"_qs, u"Avbryt"_qs, u"Texten är inget tal"_qs, u"sv_SE"_qs, u"Sök i:"_qs},
          {u"99"_qs, u"Avbryt"_qs, u"Teksten er ikke et tall"_qs, u"nb_NO"_qs, u"Se i:"_qs}}) {
        person.setLanguage(code);
        EXPECT_EQ(QLocale().name(), locale);
        EXPECT_EQ(QCoreApplication::translate("Text", "Teksten er ikke et tall"), failure);
        QString seen;
        clock.after(100ms, [&] {
            seen = box()->button(QMessageBox::Cancel)->text();
            EXPECT_LT(dialogue()->width(), 1000) << "an endless word fits the screen";
            EXPECT_LT(dialogue()->height(), 700);
            dialogue()->close();
        });
        EXPECT_EQ(ask(QString(100'000, u'9')), Answer::Cancel);
        EXPECT_EQ(seen, cancel);
        clock.after(100ms, [&] {
            seen = dialogue()->findChild<QLabel *>(u"lookInLabel"_qs)->text();
            dialogue()->close();
        });
        EXPECT_EQ(person.chooseFile({}, u"CSV (*.csv)"_qs), QString());
        EXPECT_EQ(seen, folder);
    }
}
