#include "remote/ZLRecordingDelegate.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A source of its own kind, as another remote control would be.
class OtherSource final : public ZLRemoteController {
public:
    using ZLRemoteController::deliverAction;
    using ZLRemoteController::ZLRemoteController;
};

class DelegateWithoutTheOperation final : public ZLRemoteControllerDelegate { };

}

TEST(ZLRemoteController, AnActionGoesToTheDelegateOfTheMoment)
{
    ZLRecordingDelegate first;
    ZLRecordingDelegate second;
    OtherSource controller(&first);
    EXPECT_EQ(controller.delegate(), &first);
    controller.deliverAction(ZLControllerNewChapterAction);
    controller.setDelegate(&second);
    EXPECT_EQ(controller.delegate(), &second);
    controller.deliverAction(ZLControllerSelectNextAction);
    ASSERT_EQ(first.actions.size(), 1);
    EXPECT_TRUE(ZLRemoteActions::isSameAction(first.actions.first(), ZLControllerNewChapterAction));
    EXPECT_EQ(first.controllers, QList<ZLRemoteController*> { &controller });
    EXPECT_EQ(second.actions, QStringList { ZLControllerSelectNextAction });
}

TEST(ZLRemoteController, WithoutADelegateNothingHappens)
{
    OtherSource controller(nullptr);
    controller.deliverAction(ZLControllerNewChapterAction);
    ZLRecordingDelegate delegate;
    controller.setDelegate(&delegate);
    controller.setDelegate(nullptr);
    controller.deliverAction(ZLControllerNewChapterAction);
    EXPECT_TRUE(delegate.actions.isEmpty());
}

TEST(ZLRemoteController, TheOperationIsOptional)
{
    DelegateWithoutTheOperation delegate;
    OtherSource controller(&delegate);
    controller.deliverAction(ZLControllerNewChapterAction);
    EXPECT_EQ(controller.delegate(), &delegate);
}

TEST(ZLRemoteController, NoActionIsNotDelivered)
{
    ZLRecordingDelegate delegate;
    OtherSource controller(&delegate);
    controller.deliverAction(u""_s);
    EXPECT_TRUE(delegate.actions.isEmpty());
}
