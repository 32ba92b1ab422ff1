#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <memory>
#include <vector>

class Connection;
struct Module1;

/// A user on a door, or a period that waits for one.
struct UserHit {
    qint64 key = 0; ///< names the row in the saved query Brukere, or in NYEbrukere
    bool isWaiting = false;
    bool beginsSo = false; ///< the number or a name begins with each word that was looked for
    QString door;          ///< KeyNummer as the door's own row has it
    QString doorName;
    QString number;
    QString Etternavn;
    QString Fornavn;
    QString Status;
    QString from; ///< "Gyldig fra" as stored
};

/// Looks for a number or a name on every door that the operator may see.
///
/// Each word must stand somewhere in the number or in a name, in any order and without regard to
/// case (see contains_text in EngineFunctions.h). Blanks within a number don't count, nor does a
/// "+" or "00" in front of it. Users without a row in the catalogue are on no screen, and no hits.
///
/// Numbers that begin so are found by an index, whatever the size of the file. The other rows are
/// looked at in slices, each a statement of its own, so that a screen stays alive meanwhile. An
/// object is one search: whoever wants another one drops it.
class UserSearch {
public:
    /// Rows that one slice looks at: 1 ms of work, or some 10 when all of them are hits.
    static constexpr int kSlice = 1'000;
    /// Numbers that begin so which a search tells of, at the most.
    static constexpr int kEnough = 200;

    /// Reads nothing yet.
    UserSearch(const Module1 &module, const QString &text);

    /// There is nothing to look for.
    bool isEmpty() const { return words_.isEmpty(); }
    bool isComplete() const { return stage_ == Stage::Complete; }
    /// Hands out the hits of the next slice, none of them twice in a search.
    /// @throws RuntimeFailure with the engine's words, or when no database is open; the slice can
    /// be tried again then, and has handed out nothing.
    void readSlice(const std::function<void(const UserHit &)> &use);

private:
    enum class Stage { Numbers, Waiting, Users, Complete };

    std::vector<UserHit> numbers();
    std::vector<UserHit> slice(bool waiting);
    void read(bool waiting, const QString &condition, const QVariantList &values,
              std::vector<UserHit> &hits);
    bool isNumber() const;
    bool numberBeginsSo(const QString &number, const QString &word) const;
    bool beginsSo(const UserHit &hit) const;

    std::shared_ptr<Connection> connection_;
    QString level_;
    QString dialPrefix_;
    QStringList words_;
    Stage stage_ = Stage::Numbers;
    qint64 nextRow_ = 0;
};
