#include "document/saving/ZLOpenFileNote.h"

#include "document/saving/ZLOpenFileList.h"

ZLOpenFileNote::ZLOpenFileNote(const QString& path)
    : m_path(path)
{
    ZLOpenFileList::ofThisProcess().add(*this);
}

ZLOpenFileNote::~ZLOpenFileNote()
{
    ZLOpenFileList::ofThisProcess().remove(*this);
}
