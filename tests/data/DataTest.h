#pragma once

#include "data/Connection.h"
#include "data/Recordset.h"
#include "platform/RuntimeFailure.h"
#include "support/TestDatabase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>

using testing::HasSubstr;

inline std::string failureOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const RuntimeFailure &failure) {
        return failure.description().toStdString();
    }
    return "no failure";
}

struct DataTest : testing::Test {
    void addPerson(const QString &Bruker, const QString &Etternavn)
    {
        database.add(u"Katalog"_qs, u"Bruker,Etternavn"_qs, {Bruker, Etternavn});
    }
    void addUser(const QString &KeyBruker, const QString &KeyNummer)
    {
        database.add(u"TBLbrukere"_qs, u"KeyBruker,KeyNummer"_qs, {KeyBruker, KeyNummer});
    }
    void run(const QString &sql) { database.look().run(sql); }
    static void write(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    static std::string column(const Recordset &set, int index)
    {
        QStringList values;
        for (const RecordsetRow &row : set.rows()) {
            values += row.values[index].toString();
        }
        return values.join(u'|').toStdString();
    }

    TestDatabase database;
};
