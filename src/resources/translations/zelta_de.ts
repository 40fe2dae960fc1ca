<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>MASPreferencesWindow</name>
    <message>
        <source>Preferences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Panes</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>The sound cannot be read: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The sound is empty, too long or of an unusual kind.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The sound holds nothing that can be played.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLAboutViewController</name>
    <message>
        <source>Zelta</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version and build</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Credits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLAtomicFile</name>
    <message>
        <source>This is no ordinary file.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLAvahiServiceBrowser</name>
    <message>
        <source>The system&apos;s message bus cannot be reached, so services on the network cannot be found.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Avahi is not running, so services on the network cannot be found.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Services on the network are listed as they are found.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Avahi could not look for services on the network: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLAvahiServicePublisher</name>
    <message>
        <source>There is no name or no port to announce on the network.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The system&apos;s message bus cannot be reached, so “%1” is not announced on the network.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Avahi is not running, so “%1” is not announced on the network.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” is about to be announced on the network.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Announced on the network as “%1”, port %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>every name is taken</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The name “%1” is taken on the network; another one is being sought.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Avahi could not announce “%1” on the network: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLBackgroundWrite</name>
    <message>
        <source>%1: Another program changed the file.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLBinaryPropertyListReader</name>
    <message>
        <source>This is not a binary property list.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The property list is damaged or cut short.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLChapterCellDelegate</name>
    <message>
        <source>%1 of chapter %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLChapterDocument</name>
    <message>
        <source>Recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Templates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Chapter Added</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press Reply to quickly set a title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Chapter title</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLChapterDocumentWindow</name>
    <message>
        <source>Stop the recording before closing this window.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recording starts after the beep.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pause the recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start the recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a chapter here. With Alt held it is a blank one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete the selected chapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show or hide the templates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zelta</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid Timestamp</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The timestamp you have entered is not valid!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLChapterTableModel</name>
    <message>
        <source>#</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Link</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exported</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This chapter lies before the start of the recording and is not exported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This chapter is exported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This chapter is not exported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ctrl+click opens the link.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLChapterTableView</name>
    <message>
        <source>Press Start, then Add at every new topic.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Chapters</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLCommandSocket</name>
    <message>
        <source>Zelta is not running.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zelta did not answer.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLDocumentController</name>
    <message>
        <source>%1: The file is open as another document.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” is recording. Pause the recording before you close it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: This is not a file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Untitled %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (recovered)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLDocumentFile</name>
    <message>
        <source>This is not a chapter document.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLDocumentLock</name>
    <message>
        <source>another program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, process %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLDocumentSaver</name>
    <message>
        <source>“%1” has no file yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The clock is running. Pause the recording before you revert.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLDocumentToolbar</name>
    <message>
        <source>Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pause</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Templates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recorded time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time since the last chapter</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLDocumentWindows</name>
    <message>
        <source>Dismiss</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop the recording before quitting.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not everything could be saved: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit Anyway</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exported %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The export failed. %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLEditMenu</name>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete Chapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Import Templates from Clipboard</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLExportAdviceView</name>
    <message>
        <source>Attention</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLExportFlow</name>
    <message>
        <source>Export to %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The document was closed before it could be exported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zelta</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLExportMenu</name>
    <message>
        <source>&amp;Export</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write the chapters for %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLExporter</name>
    <message>
        <source>This format writes no file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLFileMenu</name>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re&amp;vert to Last Saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Chapters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Chapter documents (*.%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Clear This List</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLGeneralPrefsViewController</name>
    <message>
        <source>Chapters:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a chapter when the recording &amp;starts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a chapter when the recording &amp;resumes after a pause</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>While another program is in front, ask for the &amp;title in a notification</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sound:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Beep before the recording starts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sound &amp;output:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sound output</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Font size:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Font size of the chapter table</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> pt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>General</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No sound output found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No sound server found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The desktop&apos;s sound server does not answer, so no beep can be heard.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLHelpMenu</name>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zelta &amp;Guide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About Zelta</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The guide is not installed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No program opens the guide. It is in %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLHindenburgExporter</name>
    <message>
        <source>The markers of this session have no end.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The session&apos;s highest marker number leaves no room.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The rewritten session would become too large.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>HALP!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>I couldn&apos;t find the Sessions tag. Please provide a well formatted Hindenburg File!</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLHotKeyCenter</name>
    <message>
        <source>Keyboards of this system have no such key.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another shortcut of this program has the same keys.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLJournalReader</name>
    <message>
        <source>This is not a journal of a document.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLKeyboardLayout</name>
    <message>
        <source>Super</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shift</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Return</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tab</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Space</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Escape</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F17</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num .</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num *</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num +</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Volume Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Volume Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mute</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num /</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num Enter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num -</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F18</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F19</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num =</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num 0</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num 2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num 3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num 4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num 5</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num 6</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num 7</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F20</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num 8</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num 9</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num ,</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F5</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F6</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F7</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F8</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F9</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F11</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F13</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F16</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F14</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F10</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Menu</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F12</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F15</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Insert</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Home</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Up</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLKeyedUnarchiver</name>
    <message>
        <source>The property list is not a keyed archive.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The archive is damaged.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The objects of the archive overlap.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The archive has no root object.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The archive contains itself.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The archive is nested too deeply.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The archive unfolds into too much.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A dictionary of the archive has a key that is not text.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLMessageRow</name>
    <message>
        <source>Attention</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLMoveChaptersDialog</name>
    <message>
        <source>Move Chapters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please enter the time in milliseconds (1s = 1000ms)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Milliseconds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLNotificationMessage</name>
    <message>
        <source>Reply</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLNullHotKeyBackend</name>
    <message>
        <source>This window system has no system-wide shortcuts.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLOSCAcceptPanel</name>
    <message>
        <source>Who May Speak</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;This computer only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Directly connected networks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Only these addresses</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Addresses that may speak</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The list is empty, so nobody may speak.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Address or network that may speak</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>192.168.1.20 or 192.168.1.0/24</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” is no address. Write an address such as 192.168.1.20, or a network such as 192.168.1.0/24.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” is in the list already.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLOSCAnnouncement</name>
    <message>
        <source>Zelta on %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLOSCConnections</name>
    <message>
        <source>&amp;OSC Connections…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLOSCConnectionsWindow</name>
    <message>
        <source>OSC Connections</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLOSCEntryEditor</name>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove the selected: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLOSCInputPanel</name>
    <message>
        <source>Send to This Computer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Address:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Port:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wanted port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>When this port is taken, one of the nine after it is used.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wanted port:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Address: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Port: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Port %1 is in use now, not the wanted one.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLOSCLog</name>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Direction</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>From or To</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Address</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2 times)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLOSCLogPanel</name>
    <message>
        <source>Messages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only &amp;problems</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pa&amp;use</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show only messages that changed nothing or did not get through.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep the list as it is; what comes meanwhile appears when it goes on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy the selected messages, or all when none is selected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contin&amp;ue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No message has failed so far.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press a button on the control surface: its message and what became of it appear here.
Nothing appears? Then it does not arrive: compare address and port, and the network.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLOSCLogView</name>
    <message>
        <source>Direction</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLOSCOutPort</name>
    <message>
        <source>The host or the port is missing.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLOSCOutputsModel</name>
    <message>
        <source>being looked up …</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not reachable: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ready</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ready, at %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” is no host with a port. Write it as 192.168.1.20:9000 or tablet.local:9000.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” is in the list already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Host and Port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reachability</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>being answered</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLOSCOutputsPanel</name>
    <message>
        <source>Outputs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Host and port to send to</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>192.168.1.20:9000</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Answer whoever sends a valid command, for %1 seconds after the last one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Messages go to the address and port that the command came from.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLOSCReceiver</name>
    <message>
        <source>UDP port %1 cannot be used.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None of the UDP ports from %1 to %2 can be used.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLOSCServicesPanel</name>
    <message>
        <source>Found on the Network</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add to &amp;Outputs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Services found on the network</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLPortalHotKeyBackend</name>
    <message>
        <source>The desktop gave this shortcut no keys.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The desktop portal has ended.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLPortalShortcutSession</name>
    <message>
        <source>There is no session bus, so the desktop cannot be asked for shortcuts.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no desktop portal, so the desktop cannot be asked for shortcuts.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The desktop has withdrawn the shortcuts.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This desktop&apos;s portal has no system-wide shortcuts.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The shortcuts were declined in the desktop&apos;s dialog.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The desktop refuses the shortcuts.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLPreferences</name>
    <message>
        <source>In the desktop&apos;s settings it is %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preferenc&amp;es…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLQuickEditWindowController</name>
    <message>
        <source>Chapter Title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time of the chapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Chapter title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLRecordingMenu</name>
    <message>
        <source>&amp;Recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pause &amp;Recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start &amp;Recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New Chapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete Selected Chapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete &amp;Last Chapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select &amp;Previous Chapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Select Next Chapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New &amp;Blank Chapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Move Chapters…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit &amp;Title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit Lin&amp;k</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLRemoteActions</name>
    <message>
        <source>Start or Pause Recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>start, pause or resume the clock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the clock starts when the start sound ends</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Chapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>add a chapter at the clock&apos;s reading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the clock is not running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Selected Chapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>remove the selected chapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no chapter is selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Last Chapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>remove the latest chapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there are no chapters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Previous Chapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>select the chapter before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no chapter before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Next Chapter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>select the chapter after</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no chapter after</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLRemoteStatusDisplay</name>
    <message>
        <source>OSC %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Sound Control messages are received on UDP port %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OSC off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>hotkeys off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shortcuts work while Zelta is in front.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>hotkeys refused</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>hotkeys on</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recorded shortcuts work in the whole system.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLSavePanel</name>
    <message>
        <source>Saved. Changes from here on are saved by themselves.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Chapters As</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Chapter documents (*.%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The document could not be saved. %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLSavingDisplay</name>
    <message>
        <source>Another program changed “%1”. %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep Mine</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take Theirs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” is also open elsewhere (%2). What is changed there is never overwritten without asking.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The recording was interrupted on %1 at %2. The clock stands until you decide.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continue the running clock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep it paused at the last reading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The document is not saved: %1 Zelta keeps trying.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Try Now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saving…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kept, no file yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing to save yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This document has no file yet. It is kept aside and is back at the next start. Click to save it to a file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Every change is written to %1. Click to save under another name.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLShortcutField</name>
    <message>
        <source>This key cannot be part of a shortcut.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold Ctrl, Alt or Super with it, or take a function key.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press the keys…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLShortcutPrefsViewController</name>
    <message>
        <source>&amp;Start or Pause Recording:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New Chapter:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete Selected Chapter:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete &amp;Last Chapter:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select &amp;Previous Chapter:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Ne&amp;xt Chapter:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Work in the whole system, also while another program is in front</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” has the same keys.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLShortcutRecorder</name>
    <message>
        <source>Clear the shortcut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLStatusLine</name>
    <message>
        <source>untitled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No templates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The next chapter takes this title. Click to show the templates.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click to prepare chapters before the recording.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLTemplatesDrawer</name>
    <message>
        <source>Templates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a template below the selected one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Template</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>+</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove the selected template</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Template</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>−</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import templates from an outline: lines that start with &quot;- &quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Templates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Prepare topics here, or import an outline from the clipboard.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import from Clipboard</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLTemplatesTableModel</name>
    <message>
        <source>Title</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Link</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show Absolute Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Templates</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Go to &amp;Messages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show Relative Time</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLWindowCloser</name>
    <message>
        <source>“%1” has no file yet. Save it before closing?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Discard</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The document cannot be saved: %1 Close it all the same?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close Without Saving</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLWindowMenu</name>
    <message>
        <source>&amp;Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mi&amp;nimize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ne&amp;xt Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Previous Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (recording)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLXcbHotKeyBackend</name>
    <message>
        <source>There is no connection to an X server.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This keyboard has no such key.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZLXcbKeyGrab</name>
    <message>
        <source>Another program holds these keys.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The X server refuses these keys (error %1).</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
