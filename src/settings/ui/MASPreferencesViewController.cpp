#include "settings/ui/MASPreferencesViewController.h"

bool MASPreferencesViewController::hasResizableWidth() const
{
    return sizePolicy().horizontalPolicy() & QSizePolicy::ExpandFlag;
}

bool MASPreferencesViewController::hasResizableHeight() const
{
    return sizePolicy().verticalPolicy() & QSizePolicy::ExpandFlag;
}
