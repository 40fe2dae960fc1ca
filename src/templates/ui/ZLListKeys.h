#pragma once

class QKeyEvent;
class QTableView;

/// Keys that the program's lists have in common.
namespace ZLListKeys {

/// Home and End go to the first and the last row, in the column that is current. False for any other key.
bool goToEnd(QTableView& list, const QKeyEvent& event);

/// Return or Enter without a modifier.
[[nodiscard]] bool isReturn(const QKeyEvent& event);

}
