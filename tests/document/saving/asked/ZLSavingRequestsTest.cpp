#include "document/saving/ZLSavingRequests.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLSavingRequestsTest : public testing::Test {
protected:
    void add(const QString& name)
    {
        m_requests.add([this, name](const ZLStatus& status, const ZLDocumentSnapshot* written) {
            const QString outcome =
                status ? u"written %1"_s.arg(written ? written->duration : -1.0) : status.error().message;
            m_answers.append(u"%1: %2"_s.arg(name, outcome));
        });
    }

    ZLSavingRequests m_requests;
    QStringList m_answers;
};

TEST_F(ZLSavingRequestsTest, AWriteServesWhatWasAskedForBeforeItBegan)
{
    add(u"one"_s);
    add(u"two"_s);
    EXPECT_TRUE(m_requests.isAnyWaiting());
    m_requests.noteBeginning({ .duration = 5.0 });
    add(u"three"_s);
    EXPECT_EQ(m_answers, QStringList());
    m_requests.noteEnd(ZLDone {});
    EXPECT_EQ(m_answers, (QStringList { u"one: written 5"_s, u"two: written 5"_s }));
    EXPECT_TRUE(m_requests.isAnyWaiting());
    m_requests.noteBeginning({ .duration = 6.0 });
    EXPECT_FALSE(m_requests.isAnyWaiting());
    m_requests.noteEnd(ZLDone {});
    EXPECT_EQ(m_answers.last(), u"three: written 6"_s);
    EXPECT_TRUE(m_requests.isEmpty());
}

TEST_F(ZLSavingRequestsTest, AWriteThatWasCalledOffLeavesItsRequestsToTheNextOne)
{
    add(u"one"_s);
    m_requests.noteBeginning({ .duration = 5.0 });
    m_requests.noteBeginning({ .duration = 6.0 });
    m_requests.noteEnd(ZLDone {});
    EXPECT_EQ(m_answers, QStringList { u"one: written 6"_s });
}

TEST_F(ZLSavingRequestsTest, AFailureIsToldToAllOfThem)
{
    add(u"one"_s);
    m_requests.noteBeginning({});
    m_requests.noteEnd(ZLError { u"full"_s });
    EXPECT_EQ(m_answers, QStringList { u"one: full"_s });
    add(u"two"_s);
    m_requests.noteBeginning({});
    add(u"three"_s);
    m_requests.answerAll(ZLError { u"silent"_s });
    EXPECT_EQ(m_answers.sliced(1), (QStringList { u"two: silent"_s, u"three: silent"_s }));
    EXPECT_TRUE(m_requests.isEmpty());
}

TEST_F(ZLSavingRequestsTest, AnAnswerMayAskForMore)
{
    m_requests.add([this](const ZLStatus&, const ZLDocumentSnapshot*) { add(u"more"_s); });
    m_requests.noteBeginning({});
    m_requests.noteEnd(ZLDone {});
    EXPECT_TRUE(m_requests.isAnyWaiting());
}
