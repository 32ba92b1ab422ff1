#include "data/RowList.h"
#include "data/Criteria.h"
#include "data/DataTest.h"

namespace {

/// Log rows of two doors, with values missing, alike, and in every case of letters.
struct RowListTest : DataTest {
    RowListTest()
    {
        database.look().transaction([&] {
            for (int i = 0; i < 300; ++i) {
                const auto some = [i](int prime, const QVariant &value) {
                    return i % prime == 0 ? QVariant() : value;
                };
                database.add(u"LOGGData"_qs, u"KeyNummer,KeyUser,Fornavn,Dato"_qs,
                             {i % 2 ? u"+4790000001"_qs : u"+4790000002 "_qs, i % 7,
                              some(11, names[i * 5 % names.size()]),
                              some(13, u"%1/06,0%2:10"_qs.arg(i % 28 + 1).arg(i % 3))});
            }
        });
    }
    static RowSelect select(const QString &sort)
    {
        RowSelect select({.source = u"LOGGData"_qs,
                          .columns = {u"KeyNummer"_qs, u"KeyUser"_qs, u"Fornavn"_qs, u"Dato"_qs},
                          .filter = equals(u"KeyNummer"_qs),
                          .values = {u"+4790000001"_qs},
                          .key = u"Rad"_qs});
        select.sortBy(sort, sort.isEmpty());
        return select;
    }
    static std::string keys(const RowList &list)
    {
        QStringList keys;
        for (int row = 0; row < list.count(); ++row) {
            keys += QString::number(list.key(row));
        }
        return keys.join(u'|').toStdString();
    }

    const QStringList names{u"Ås"_qs,   u"ås  "_qs, u"Ærlig"_qs, u"østen"_qs,
                            u"Zorn"_qs, u"anna"_qs, u"ANNA"_qs,  u"Ölund"_qs,
                            u"Ära"_qs,  u"é"_qs,    u""_qs};
};

struct Case {
    QString sort;
    QString order; ///< what the engine sorts by
};

// The engine's own order is the measure, whatever the size of the slices.
TEST_F(RowListTest, ListsInTheEnginesOrderSliceBySlice)
{
    for (const auto &[sort, order] :
         {Case{u""_qs, u"Rad"_qs}, Case{u"Fornavn"_qs, u"Fornavn, Rad"_qs},
          Case{u"KeyUser"_qs, u"KeyUser, Rad"_qs},
          Case{u"Dato"_qs, u"upper(rtrim(Dato)), Rad"_qs}}) {
        const QString expected =
            database
                .rows(u"SELECT Rad FROM LOGGData WHERE KeyNummer = '+4790000001' ORDER BY "_qs +
                      order)
                .join(u'|');
        for (const int slice : {1, 7, 1000}) {
            RowList list(database.own(), select(sort));
            int slices = 0;
            while (!list.isComplete()) {
                const std::string before = keys(list);
                list.readSlice(slice);
                ASSERT_TRUE(keys(list).starts_with(before)) << "a row that stood has moved";
                ASSERT_LE(++slices, 2 * 150 + 3);
            }
            EXPECT_EQ(keys(list), expected.toStdString()) << sort.toStdString() << slice;
        }
    }
}

// A new row stands last, and once, however far the reading has come.
TEST_F(RowListTest, NewRowStandsOnceWheneverItComes)
{
    for (const QString &sort : {u""_qs, u"Fornavn"_qs, u"Dato"_qs}) {
        for (const int slicesBefore : {0, 2, 200}) {
            RowList list(database.own(), select(sort));
            for (int i = 0; i < slicesBefore; ++i) {
                list.readSlice(1);
            }
            database.add(u"LOGGData"_qs, u"KeyNummer"_qs, {u"+4790000001"_qs});
            const qint64 fresh = database.look().lastInsertRowId();
            list.append(fresh);
            const auto stopped = list.soFar();
            EXPECT_EQ(stopped->rowOf(fresh), stopped->count() - 1);
            list.readAll();
            const QString all = u'|' + QString::fromStdString(keys(list)) + u'|';
            EXPECT_EQ(all.count(u"|%1|"_qs.arg(fresh)), 1) << sort.toStdString();
            if (sort.isEmpty()) {
                EXPECT_EQ(list.rowOf(fresh), list.count() - 1);
            }
        }
    }
}

TEST_F(RowListTest, AnIndexedOrderStandsAtOnce)
{
    RowList byDate(database.own(), select(u"Dato"_qs));
    byDate.readSlice(10);
    EXPECT_EQ(byDate.count(), 10);
    RowList byName(database.own(), select(u"Fornavn"_qs));
    byName.readSlice(10);
    EXPECT_EQ(byName.count(), 0);
}

} // namespace
