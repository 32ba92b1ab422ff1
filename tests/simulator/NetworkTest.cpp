#include "ModemWorld.h"

namespace {

const QString kA = u"+4790000001"_qs;
const QString kB = u"+4790000002"_qs;

/// A phone that remembers texts with the second of their arrival, and refuses when it is full.
struct Phone {
    Phone(VirtualClock &clock, SmsNetwork &network, const QString &number)
    {
        network.addPhone(number, {[&clock, this](const SmsMessage &message) {
                                      if (!full) {
                                          got += QByteArray::number(clock.elapsed() / 1s) + ' ' +
                                                 message.text + ' ';
                                          stamp = message.sentAt;
                                      }
                                      return !full;
                                  },
                                  [this](const SmsReport &report) {
                                      reports.push_back(report);
                                      return true;
                                  }});
    }
    QByteArray got;
    QDateTime stamp;
    std::vector<SmsReport> reports;
    bool full = false;
};

struct Network : testing::Test {
    VirtualClock clock;
    SmsNetwork network{clock};
    Phone a{clock, network, kA};
    Phone b{clock, network, kB};
};

TEST_F(Network, DeliversInOrderBehindItsDelay)
{
    network.send(kA, kB, "one");
    network.send(kA, kB, "two");
    network.send(kB, kA, "late", 3s);
    clock.run(1s);
    network.send(kA, kB, "three");
    clock.run(10s);
    EXPECT_EQ(b.got, "2 one 2 two 3 three ");
    EXPECT_EQ(a.got, "5 late ");
    EXPECT_EQ(a.stamp, QDateTime(QDate(2026, 12, 1), QTime(9, 0, 3))) << "when its sender speaks";
}

TEST_F(Network, ReportsToTheSenderWhatBecameOfIt)
{
    network.sendWithReport(kA, kB, "one", 7);
    network.sendWithReport(kA, u"+4799999999"_qs, "two", 8);
    clock.run(3999ms);
    EXPECT_TRUE(a.reports.empty());
    clock.run(1ms);
    ASSERT_EQ(a.reports.size(), 2u);
    EXPECT_EQ(a.reports[0].reference, 7);
    EXPECT_EQ(a.reports[0].status, SmsNetwork::kDelivered);
    EXPECT_EQ(a.reports[0].sentAt.secsTo(a.reports[0].settledAt), 2);
    EXPECT_EQ(a.reports[1].reference, 8);
    EXPECT_EQ(a.reports[1].status, SmsNetwork::kNotObtainable);
}

TEST_F(Network, KeepsTheOrderForAPhoneWithoutRoom)
{
    b.full = true;
    network.sendWithReport(kA, kB, "one", 1);
    clock.run(5s);
    b.full = false;
    network.send(kA, kB, "two");
    clock.run(5s);
    EXPECT_EQ(b.got, "") << "the second may not overtake the first";
    EXPECT_TRUE(a.reports.empty());
    network.memoryAvailable(kB);
    EXPECT_EQ(b.got, "10 one 10 two ");
    clock.run(5s);
    EXPECT_EQ(a.reports.size(), 1u);
}

TEST_F(Network, ForgetsAPhoneThatIsGone)
{
    network.send(kA, kB, "one");
    network.removePhone(kB);
    clock.run(10s);
    EXPECT_EQ(b.got, "");
}

} // namespace
