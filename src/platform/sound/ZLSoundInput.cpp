#include "platform/sound/ZLSoundInput.h"

#include "platform/sound/ZLPulseInput.h"

std::unique_ptr<ZLSoundInput> ZLSoundInput::create()
{
    return std::make_unique<ZLPulseInput>();
}
