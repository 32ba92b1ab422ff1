#pragma once

#include "app/Application.h"
#include "app/frmMain.h"
#include "data/Connection.h"
#include "simulator/DoorUnit.h"
#include "support/FarModem.h"
#include "support/TestDatabase.h"

#include <vector>

/// The whole program in one process: the real main screen offscreen, a real database file, the
/// simulated modem, network and doors, and the virtual clock. The same each time.
class World : public FakeMachine, public FarModem {
public:
    enum class Line { Com, Tcp };
    struct Door {
        QString number;
        QString name;
        DoorLanguage language = DoorLanguage::Norwegian;
    };
    struct Setup {
        Line line = Line::Com;
        bool reports = false;
        QString CountryCode = QStringLiteral("47");
        std::vector<Door> doors = {{QStringLiteral("+4790000001"), QStringLiteral("Hovedport")}};
        /// Touches the world before the program starts: faults, rows, settings.
        std::function<void(World &)> before = {};
    };

    /// Logs in, sits out the splash, answers the connection's question: the main screen is up.
    explicit World(Setup setup);
    World() : World(Setup{}) {}
    ~World();

    /// The same for another start on the same file. Gives false when the main screen did not come.
    bool start();
    /// Takes a program away that has ended; the world goes on without it.
    void takeDown();

    frmMain &screen() { return *application_->mainScreen(); }
    ModemLink &modemLink() { return screen().modemLink(); }
    /// Text of a panel of the status bar, 1 to 3.
    QString panel(int number);
    Application &application() { return *application_; }
    TestDatabase &database() { return database_; }
    DoorUnit &door(std::size_t i = 0) { return *doors_[i]; }

    /// The control of this name on the main screen.
    template <class Control> Control &control(const char *name)
    {
        auto *found = screen().findChild<Control *>(QString::fromUtf8(name));
        if (found == nullptr) {
            throw std::runtime_error(std::string("No such control: ") + name);
        }
        return *found;
    }
    void click(const char *button);
    /// Replaces the text of a field by what an operator types, and leaves the field.
    void type(const char *field, const QString &text);
    void chooseTab(const QString &caption);
    /// New user: button, number, names, button.
    void registerUser(const QString &number, const QString &saldo = {});

    /// The operator chooses the line again, which initialises the modem again.
    void chooseLineAgain();

    /// First value of the statement's first row, as text, read through a connection of its own.
    QString value(const QString &sql) { return database_.single(sql); }
    /// All rows, columns joined by "|".
    QStringList rows(const QString &sql) { return database_.rows(sql); }
    /// Status of a number on a door, "-" without a row.
    QString status(const QString &number, const QString &door = QStringLiteral("+4790000001"));
    void execute(const QString &sql) { database_.look().run(sql); }

    /// Lets the time go by until the condition holds; looked at once a second.
    bool runUntil(const std::function<bool()> &condition, milliseconds limit);
    /// Lets the time go by until nothing waits: no unsent message, no record in the modem's store.
    bool runUntilIdle(milliseconds limit = 10min);
    bool runUntilStatus(const QString &number, const QString &wanted, milliseconds limit = 10min);

    /// Texts that reached this door, in order.
    QStringList received(const QString &number) const { return receivedBy_.value(number); }

private:
    void login(int start);

    TestDatabase database_;
    Line line_;
    int starts_ = 0; ///< ended ones count twice
    std::vector<std::unique_ptr<DoorUnit>> doors_;
    QMap<QString, QStringList> receivedBy_;
    std::unique_ptr<Application> application_;
};
