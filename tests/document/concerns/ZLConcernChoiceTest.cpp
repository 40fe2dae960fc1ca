#include "document/concerns/ZLConcern.h"

#include <QSet>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ZLConcernChoiceTest, EachActionHasOneChoiceWithALabel)
{
    for (int action = 0; action <= int(ZLConcernAction::Dismiss); ++action) {
        const ZLConcernChoice& choice = ZLConcernChoices::of(ZLConcernAction(action));
        EXPECT_EQ(int(choice.action), action);
        EXPECT_FALSE(choice.label().isEmpty()) << action;
    }
    EXPECT_EQ(qsizetype(ZLConcernChoices::all().size()), qsizetype(ZLConcernAction::Dismiss) + 1);
}

TEST(ZLConcernChoiceTest, AWordLeadsToItsChoiceAndSaysWhatItDoes)
{
    QSet<QString> words;
    for (const ZLConcernChoice& choice : ZLConcernChoices::all()) {
        if (!choice.wordText)
            continue;
        EXPECT_EQ(ZLConcernChoices::withWord(choice.word()), &choice);
        EXPECT_FALSE(choice.effect().isEmpty() || choice.summary().isEmpty() || choice.obstacle().isEmpty());
        words.insert(choice.word());
    }
    EXPECT_EQ(words,
        (QSet<QString> { u"continue"_s, u"keep"_s, u"addsleep"_s, u"leavesleep"_s, u"taketime"_s, u"keeptime"_s,
            u"mine"_s, u"theirs"_s, u"both"_s }));
    EXPECT_EQ(ZLConcernChoices::withWord(u"ours"_s), nullptr);
    EXPECT_EQ(ZLConcernChoices::withWord(QString()), nullptr);
}

TEST(ZLConcernChoiceTest, TheWordsFollowTheSentence)
{
    ZLConcern concern { .sentence = u"Another program changed it."_s,
        .choices = { ZLConcernAction::KeepMine, ZLConcernAction::SaveAs, ZLConcernAction::KeepBoth } };
    EXPECT_EQ(concern.sentenceWithWords(),
        u"Another program changed it. \"mine\" writes over it, \"both\" goes on in a new file."_s);
    concern.choices = { ZLConcernAction::TryNow };
    EXPECT_EQ(concern.sentenceWithWords(), concern.sentence) << "nothing to type";
}
