#include "platform/activity/ZLProcessActivity.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

/// Begins an activity and stays until the process is ended.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const auto activity = ZLProcessActivity::create();
    activity->begin(u"staying awake"_s);
    activity->holdBackLogOut(u"recording"_s);
    return QCoreApplication::exec();
}
