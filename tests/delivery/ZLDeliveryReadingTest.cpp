#include "delivery/ZLDeliveryReading.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include <atomic>
#include <future>

using namespace Qt::StringLiterals;

TEST(ZLDeliveryReadingTest, OnlyWhatCannotBeReadIsTriedAgain)
{
    ZLDeliveryReading reading([](const QString& path) { return ZLError { path }; });
    QSignalSpy readings(&reading, &ZLDeliveryReading::didRead);
    reading.read({ u"a"_s, u"b"_s });
    ASSERT_TRUE(QTest::qWaitFor([&] { return readings.size() == 2; }));
    reading.setUnreadable({ u"b"_s });
    reading.tryAgain();
    ASSERT_TRUE(QTest::qWaitFor([&] { return readings.size() == 3; }));
    EXPECT_EQ(readings.at(2).at(0).toString(), u"b"_s);
    reading.setUnreadable({});
    reading.tryAgain();
    QTest::qWait(0);
    EXPECT_EQ(readings.size(), 3);
}

TEST(ZLDeliveryReadingTest, ADiskThatDoesNotAnswerIsAskedOnce)
{
    const auto mayAnswer = std::make_shared<std::promise<void>>();
    const auto asked = std::make_shared<std::atomic<int>>(0);
    {
        ZLDeliveryReading reading([asked, answer = mayAnswer->get_future().share()](const QString& path) {
            ++*asked;
            answer.wait();
            return ZLError { path };
        });
        reading.setUnreadable({ u"a"_s });
        reading.tryAgain();
        ASSERT_TRUE(QTest::qWaitFor([&] { return *asked == 1; }));
        reading.tryAgain();
        reading.tryAgain();
        QTest::qWait(50);
        EXPECT_EQ(*asked, 1);
    }
    mayAnswer->set_value();
}
