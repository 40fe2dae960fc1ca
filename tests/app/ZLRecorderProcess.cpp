// The windowless recorder alone, for tests that send signals to it or kill it: [--record] [FILE]
#include "app/headless/ZLHeadlessRecorder.h"
#include "settings/ZLSettingsManager.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    ZLSettingsManager::registerDefaults(10.0F);
    ZLSettingsManager::setCreateNewChapterOnStart(true);
    ZLSettingsManager::setPlaySoundBeforeRecording(false);
    QStringList arguments = QCoreApplication::arguments().sliced(1);
    const bool isRecording = arguments.removeAll(u"--record"_s) > 0;
    const auto file = arguments.isEmpty() ? std::nullopt : std::optional(arguments.first());

    ZLDocumentController controller({});
    ZLHeadlessRecorder recorder(controller, ZLHeadlessStreams::standard());
    QObject::connect(&recorder, &ZLHeadlessRecorder::didFinish, &application, &QCoreApplication::exit);
    if (!recorder.start(file, isRecording ? ZLHeadlessStart::Recording : ZLHeadlessStart::Paused))
        return ZLExitStatus::Failed;
    return QCoreApplication::exec();
}
