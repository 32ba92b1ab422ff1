#include "platform/qt/QtOperator.h"
#include "platform/Clock.h"
#include "support/VirtualClock.h"

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

QWidget *openDialogue()
{
    return QApplication::activeModalWidget();
}

struct Questions : testing::Test {
    VirtualClock clock;
    QtOperator person{clock};
};

} // namespace

TEST_F(Questions, TakeTextsAsTheyStand)
{
    const QString text = QStringLiteral("\r******\rModem <b>not</b> found!!!");
    QString seen;
    clock.after(100ms, [&] {
        auto *box = qobject_cast<QMessageBox *>(openDialogue());
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        seen = box->text();
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
    EXPECT_EQ(person.messageBox(text, {}, Buttons::Ok), Answer::Ok);
    EXPECT_EQ(seen, QStringLiteral("\n******\nModem <b>not</b> found!!!"));
}

TEST_F(Questions, CountAClosedBoxAsCancel)
{
    clock.after(100ms, [] { openDialogue()->close(); });
    EXPECT_EQ(person.messageBox(QStringLiteral("Slette?"), {}, Buttons::OkCancel), Answer::Cancel);
}

TEST_F(Questions, StandOneOverTheOther)
{
    Answer inner = Answer::Cancel;
    QStringList order;
    clock.after(100ms, [&] {
        inner = person.messageBox(QStringLiteral("Indre"), {}, Buttons::OkCancel);
        order.append(QStringLiteral("indre"));
    });
    const auto answer = [] {
        auto *box = qobject_cast<QMessageBox *>(openDialogue());
        const auto button = box->text() == u"Indre" ? QMessageBox::Ok : QMessageBox::Cancel;
        QTest::mouseClick(box->button(button), Qt::LeftButton);
    };
    clock.after(200ms, answer);
    clock.after(300ms, answer);
    EXPECT_EQ(person.messageBox(QStringLiteral("Ytre"), {}, Buttons::OkCancel), Answer::Cancel);
    order.append(QStringLiteral("ytre"));
    EXPECT_EQ(inner, Answer::Ok);
    EXPECT_EQ(order, (QStringList{QStringLiteral("indre"), QStringLiteral("ytre")}));
}

TEST_F(Questions, VanishWhenTheProgramEnds)
{
    clock.after(100ms, [&] {
        try {
            person.messageBox(QStringLiteral("Indre"), {}, Buttons::Ok);
            ADD_FAILURE() << "answered";
        } catch (const ProgramEnds &) {
        }
    });
    clock.after(200ms, [&] { clock.end(); });
    EXPECT_THROW(person.inputBox(QStringLiteral("Ytre"), {}, {}), ProgramEnds);
    EXPECT_EQ(openDialogue(), nullptr);
}

TEST_F(Questions, TellNoEmptyInputFromACancelledOne)
{
    clock.after(100ms, [] {
        auto *field = openDialogue()->findChild<QLineEdit *>();
        EXPECT_EQ(field->selectedText(), QStringLiteral("5"));
        QTest::keyClicks(field, QStringLiteral("12"));
        QTest::keyClick(field, Qt::Key_Return);
    });
    EXPECT_EQ(
        person.inputBox(QStringLiteral("Velg"), QStringLiteral("Com Port"), QStringLiteral("5")),
        QStringLiteral("12"));
    clock.after(100ms, [] { QTest::keyClick(openDialogue(), Qt::Key_Escape); });
    EXPECT_EQ(person.inputBox(QStringLiteral("Velg"), {}, QStringLiteral("5")), QString());
}

TEST_F(Questions, FitTheScreenWithAnEndlessWord)
{
    clock.after(100ms, [] {
        EXPECT_LT(openDialogue()->width(), 1000);
        EXPECT_LT(openDialogue()->height(), 700);
        openDialogue()->close();
    });
    person.messageBox(QString(100'000, u'9'), {}, Buttons::Ok);
}

TEST_F(Questions, SpeakTheLanguageOfTheCountry)
{
    for (const auto &[code, caption] : {std::pair{u"45", u"Annuller"}, std::pair{u"46", u"Avbryt"},
                                        std::pair{u"99", u"Avbryt"}}) {
        person.setLanguage(QString::fromUtf16(code));
        QString seen;
        clock.after(100ms, [&] {
            seen = qobject_cast<QMessageBox *>(openDialogue())->button(QMessageBox::Cancel)->text();
            openDialogue()->close();
        });
        person.messageBox(QStringLiteral("?"), {}, Buttons::OkCancel);
        EXPECT_EQ(seen, QString::fromUtf16(caption));
    }
}
