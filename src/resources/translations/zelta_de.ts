<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>MASPreferencesWindow</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Panes</source>
        <translation>Bereiche</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>The sound cannot be read: %1</source>
        <translation>Der Ton lässt sich nicht lesen: %1</translation>
    </message>
    <message>
        <source>The sound is empty, too long or of an unusual kind.</source>
        <translation>Der Ton ist leer, zu lang oder von ungewöhnlicher Art.</translation>
    </message>
    <message>
        <source>The sound holds nothing that can be played.</source>
        <translation>Der Ton enthält nichts, was sich abspielen lässt.</translation>
    </message>
</context>
<context>
    <name>ZLAboutViewController</name>
    <message>
        <source>Zelta</source>
        <translation>Zelta</translation>
    </message>
    <message>
        <source>Version and build</source>
        <translation>Version und Build</translation>
    </message>
    <message>
        <source>Credits</source>
        <translation>Mitwirkende</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>:/Credits.html</source>
        <extracomment>A file in the resources, one for each language.</extracomment>
        <translation>:/Credits_de.html</translation>
    </message>
</context>
<context>
    <name>ZLApplication</name>
    <message>
        <source>A recording is running.</source>
        <translation>Eine Aufnahme läuft.</translation>
    </message>
</context>
<context>
    <name>ZLAtomicFile</name>
    <message>
        <source>%1 more are needed on this disk, %2 are free.</source>
        <translation>Auf diesem Datenträger werden noch %1 gebraucht, frei sind %2.</translation>
    </message>
</context>
<context>
    <name>ZLAvahiServiceBrowser</name>
    <message>
        <source>Services on the network are listed as they are found.</source>
        <translation>Dienste im Netzwerk erscheinen hier, sobald sie gefunden sind.</translation>
    </message>
    <message>
        <source>Avahi could not look for services on the network: %1</source>
        <translation>Avahi konnte nicht nach Diensten im Netzwerk suchen: %1</translation>
    </message>
    <message>
        <source>Cannot look for services on the network: no system D-Bus</source>
        <translation>Keine Suche nach Diensten im Netzwerk: kein System-D-Bus</translation>
    </message>
    <message>
        <source>Cannot look for services on the network: Avahi is not running</source>
        <translation>Keine Suche nach Diensten im Netzwerk: Avahi läuft nicht</translation>
    </message>
</context>
<context>
    <name>ZLAvahiServicePublisher</name>
    <message>
        <source>Announced on the network as “%1”, port %2.</source>
        <translation>Im Netzwerk bekannt als „%1“, Port %2.</translation>
    </message>
    <message>
        <source>every name is taken</source>
        <translation>alle Namen sind vergeben</translation>
    </message>
    <message>
        <source>Not announced on the network: no name or no port</source>
        <translation>Nicht im Netzwerk bekannt gegeben: kein Name oder kein Port</translation>
    </message>
    <message>
        <source>Not announced on the network: no system D-Bus</source>
        <translation>Nicht im Netzwerk bekannt gegeben: kein System-D-Bus</translation>
    </message>
    <message>
        <source>Not announced on the network: Avahi is not running</source>
        <translation>Nicht im Netzwerk bekannt gegeben: Avahi läuft nicht</translation>
    </message>
    <message>
        <source>Announcing “%1” on the network…</source>
        <translation>„%1“ wird im Netzwerk bekannt gegeben&#xa0;…</translation>
    </message>
    <message>
        <source>The name “%1” is taken on the network. Trying another one.</source>
        <translation>Der Name „%1“ ist im Netzwerk vergeben. Ein anderer wird versucht.</translation>
    </message>
    <message>
        <source>Not announced on the network: %1</source>
        <translation>Nicht im Netzwerk bekannt gegeben: %1</translation>
    </message>
</context>
<context>
    <name>ZLBackgroundWrite</name>
    <message>
        <source>%1: Another program changed the file.</source>
        <translation>%1: Ein anderes Programm hat die Datei geändert.</translation>
    </message>
</context>
<context>
    <name>ZLBinaryPropertyListReader</name>
    <message>
        <source>This is not a binary property list.</source>
        <translation>Das ist keine binäre Eigenschaftsliste.</translation>
    </message>
    <message>
        <source>The property list is damaged or cut short.</source>
        <translation>Die Eigenschaftsliste ist beschädigt oder abgeschnitten.</translation>
    </message>
</context>
<context>
    <name>ZLBoundedFile</name>
    <message>
        <source>This is a symbolic link, which is not followed here.</source>
        <translation>Das ist eine symbolische Verknüpfung, der hier nicht gefolgt wird.</translation>
    </message>
    <message>
        <source>The file is larger than %1.</source>
        <translation>Die Datei ist größer als %1.</translation>
    </message>
    <message>
        <source>This is a folder, not a file.</source>
        <translation>Das ist ein Ordner, keine Datei.</translation>
    </message>
    <message>
        <source>This is a pipe, not a file.</source>
        <translation>Das ist eine Pipe, keine Datei.</translation>
    </message>
    <message>
        <source>This is a socket, not a file.</source>
        <translation>Das ist ein Socket, keine Datei.</translation>
    </message>
    <message>
        <source>This is a device, not a file.</source>
        <translation>Das ist ein Gerät, keine Datei.</translation>
    </message>
    <message>
        <source>This is not a regular file.</source>
        <translation>Das ist keine gewöhnliche Datei.</translation>
    </message>
</context>
<context>
    <name>ZLChapterCellDelegate</name>
    <message>
        <source>%1 of chapter %2</source>
        <translation>%1 von Kapitel %2</translation>
    </message>
</context>
<context>
    <name>ZLChapterContextMenu</name>
    <message>
        <source>Chapter</source>
        <translation>Kapitel</translation>
    </message>
    <message>
        <source>&amp;Open Link</source>
        <translation>Link ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Copy Link</source>
        <translation>Link &amp;kopieren</translation>
    </message>
</context>
<context>
    <name>ZLChapterDocument</name>
    <message>
        <source>Recording</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Templates</source>
        <translation>Vorlagen</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <source>New Chapter Added</source>
        <translation>Neues Kapitel gesetzt</translation>
    </message>
    <message>
        <source>Press Reply to quickly set a title</source>
        <translation>Mit „Antworten“ gleich einen Titel geben</translation>
    </message>
    <message>
        <source>Chapter title</source>
        <translation>Kapiteltitel</translation>
    </message>
    <message>
        <source>Revert</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Create Chapter</source>
        <translation>Kapitel anlegen</translation>
    </message>
    <message>
        <source>Delete Chapter</source>
        <translation>Kapitel löschen</translation>
    </message>
    <message>
        <source>Remove Chapter</source>
        <translation>Kapitel entfernen</translation>
    </message>
    <message>
        <source>Move Chapters</source>
        <translation>Kapitel verschieben</translation>
    </message>
    <message>
        <source>Change Enabled</source>
        <translation>Häkchen ändern</translation>
    </message>
    <message>
        <source>Change Title</source>
        <translation>Titel ändern</translation>
    </message>
    <message>
        <source>Change Link</source>
        <translation>Link ändern</translation>
    </message>
    <message>
        <source>Change Time</source>
        <translation>Zeit ändern</translation>
    </message>
    <message>
        <source>Continue Recording</source>
        <translation>Aufnahme fortsetzen</translation>
    </message>
    <message>
        <source>Keep Recording Paused</source>
        <translation>Aufnahme pausiert lassen</translation>
    </message>
    <message>
        <source>Start Recording</source>
        <translation>Aufnahme starten</translation>
    </message>
    <message>
        <source>Stop Recording</source>
        <translation>Aufnahme anhalten</translation>
    </message>
    <message>
        <source>Add Slept Time</source>
        <translation>Ruhezeit hinzufügen</translation>
    </message>
    <message>
        <source>Leave Slept Time</source>
        <translation>Ruhezeit weglassen</translation>
    </message>
    <message>
        <source>Add Template</source>
        <translation>Vorlage hinzufügen</translation>
    </message>
    <message>
        <source>Remove Template</source>
        <translation>Vorlage entfernen</translation>
    </message>
    <message>
        <source>Import Templates</source>
        <translation>Vorlagen importieren</translation>
    </message>
    <message>
        <source>Move Template</source>
        <translation>Vorlage verschieben</translation>
    </message>
    <message>
        <source>Tidy Titles</source>
        <translation>Titel aufräumen</translation>
    </message>
    <message>
        <source>Import Chapters</source>
        <translation>Kapitel importieren</translation>
    </message>
    <message>
        <source>Fit to Finished File</source>
        <translation>An fertige Datei anpassen</translation>
    </message>
    <message>
        <source>Remove Listening Data</source>
        <translation>Gehörtes entfernen</translation>
    </message>
    <message>
        <source>Take Recorder&apos;s Time</source>
        <translation>Zeit des Rekorders übernehmen</translation>
    </message>
    <message>
        <source>Keep Zelta&apos;s Time</source>
        <translation>Zeit von Zelta behalten</translation>
    </message>
    <message>
        <source>Take Recorder&apos;s Times</source>
        <translation>Zeiten des Rekorders übernehmen</translation>
    </message>
    <message>
        <source>Take Zelta&apos;s Times</source>
        <translation>Zeiten von Zelta übernehmen</translation>
    </message>
</context>
<context>
    <name>ZLChapterDocumentWindow</name>
    <message>
        <source>The recording starts after the beep.</source>
        <translation>Die Aufnahme beginnt nach dem Piepton.</translation>
    </message>
    <message>
        <source>Pause the recording</source>
        <translation>Die Aufnahme pausieren</translation>
    </message>
    <message>
        <source>Start the recording</source>
        <translation>Die Aufnahme starten</translation>
    </message>
    <message>
        <source>Delete the selected chapter</source>
        <translation>Das ausgewählte Kapitel löschen</translation>
    </message>
    <message>
        <source>Show or hide the templates</source>
        <translation>Die Vorlagen ein- oder ausblenden</translation>
    </message>
    <message>
        <source>Zelta</source>
        <translation>Zelta</translation>
    </message>
    <message>
        <source>Invalid Timestamp</source>
        <translation>Ungültige Zeit</translation>
    </message>
    <message>
        <source>The timestamp you have entered is not valid!</source>
        <translation>Die eingegebene Zeit ist nicht gültig!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Pause the recording before closing this window.</source>
        <translation>Vor dem Schließen des Fensters bitte die Aufnahme pausieren.</translation>
    </message>
    <message>
        <source>untitled</source>
        <translation>ohne Titel</translation>
    </message>
    <message>
        <source>Recording: %1</source>
        <translation>Aufnahme: %1</translation>
    </message>
    <message>
        <source>Add a chapter now. Hold Alt for a blank one.</source>
        <translation>Jetzt ein Kapitel setzen, mit gedrückter Alt-Taste ein leeres.</translation>
    </message>
    <message>
        <source>Continue the recording: the clock goes on from where it stands</source>
        <translation>Die Aufnahme fortsetzen: Die Uhr läuft dort weiter, wo sie steht</translation>
    </message>
</context>
<context>
    <name>ZLChapterEditItems</name>
    <message>
        <source>I&amp;nsert Chapter…</source>
        <translation>Kapitel ein&amp;fügen …</translation>
    </message>
    <message>
        <source>Tid&amp;y Titles</source>
        <translation>Titel aufräu&amp;men</translation>
    </message>
    <message>
        <source>&amp;Move Selected Chapter</source>
        <translation>Ausgewähltes Kapitel &amp;verschieben</translation>
    </message>
    <message>
        <source>0.1 s &amp;Earlier</source>
        <translation>0,1 s &amp;früher</translation>
    </message>
    <message>
        <source>0.1 s &amp;Later</source>
        <translation>0,1 s &amp;später</translation>
    </message>
    <message>
        <source>1 s E&amp;arlier</source>
        <translation>1 s f&amp;rüher</translation>
    </message>
    <message>
        <source>1 s La&amp;ter</source>
        <translation>1 s s&amp;päter</translation>
    </message>
    <message>
        <source>All titles are tidy.</source>
        <translation>Alle Titel sind aufgeräumt.</translation>
    </message>
    <message>
        <source>1 chapter tidied</source>
        <translation>1 Kapitel aufgeräumt</translation>
    </message>
    <message>
        <source>%1 chapters tidied</source>
        <translation>%1 Kapitel aufgeräumt</translation>
    </message>
</context>
<context>
    <name>ZLChapterListing</name>
    <message>
        <source>Enabled</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Link</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>Recorded: %1
</source>
        <translation>Aufgenommen: %1
</translation>
    </message>
    <message>
        <source>No chapters.
</source>
        <translation>Keine Kapitel.
</translation>
    </message>
</context>
<context>
    <name>ZLChapterTableModel</name>
    <message>
        <source>#</source>
        <translation>#</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Link</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Exported</source>
        <translation>Exportiert</translation>
    </message>
    <message>
        <source>This chapter lies before the start of the recording and is not exported.</source>
        <translation>Dieses Kapitel liegt vor dem Beginn der Aufnahme und wird nicht exportiert.</translation>
    </message>
    <message>
        <source>This chapter is exported.</source>
        <translation>Dieses Kapitel wird exportiert.</translation>
    </message>
    <message>
        <source>This chapter is not exported.</source>
        <translation>Dieses Kapitel wird nicht exportiert.</translation>
    </message>
    <message>
        <source>Ctrl+click opens the link.</source>
        <translation>Strg+Klick öffnet den Link.</translation>
    </message>
</context>
<context>
    <name>ZLChapterTableView</name>
    <message>
        <source>Press Start, then Add at every new topic.</source>
        <translation>Erst „Start“ drücken, dann „Neu“ bei jedem neuen Thema.</translation>
    </message>
    <message>
        <source>Chapters</source>
        <translation>Kapitel</translation>
    </message>
</context>
<context>
    <name>ZLClockStart</name>
    <message>
        <source>%1: The start beep is not to be heard in it.</source>
        <translation>%1: Der Piepton vor dem Start ist darin nicht zu hören.</translation>
    </message>
    <message>
        <source>%1 is not the recording of this show: too little of what was heard along is in it.</source>
        <translation>%1 ist nicht die Aufnahme dieser Sendung: Zu wenig vom Mitgehörten ist darin.</translation>
    </message>
</context>
<context>
    <name>ZLCommandLine</name>
    <message>
        <source>The name of a file is empty.</source>
        <translation>Ein Dateiname ist leer.</translation>
    </message>
    <message>
        <source>--osc-port needs a number from %1 to 65535.</source>
        <translation>--osc-port braucht eine Zahl von %1 bis 65535.</translation>
    </message>
    <message>
        <source>&quot;formats&quot; takes no file.</source>
        <translation>„formats“ nimmt keine Datei.</translation>
    </message>
    <message>
        <source>&quot;export&quot; needs --format with the name of a format, see &quot;zelta formats&quot;.</source>
        <translation>„export“ braucht --format mit dem Namen eines Formats, siehe „zelta formats“.</translation>
    </message>
    <message>
        <source>&quot;export&quot; needs --output with the file to write.</source>
        <translation>„export“ braucht --output mit der Datei, in die geschrieben wird.</translation>
    </message>
    <message>
        <source>&quot;export&quot; needs exactly one file to read.</source>
        <translation>„export“ braucht genau eine Datei zum Lesen.</translation>
    </message>
    <message>
        <source>&quot;show&quot; needs exactly one file.</source>
        <translation>„show“ braucht genau eine Datei.</translation>
    </message>
    <message>
        <source>&quot;send&quot; needs exactly one action: %1.</source>
        <translation>„send“ braucht genau eine Aktion: %1.</translation>
    </message>
    <message>
        <source>There is no action &quot;%1&quot;. The actions are %2.</source>
        <translation>Es gibt keine Aktion „%1“. Die Aktionen sind %2.</translation>
    </message>
    <message>
        <source>--osc-send needs HOST:PORT, not &quot;%1&quot;.</source>
        <translation>--osc-send braucht RECHNER:PORT, nicht „%1“.</translation>
    </message>
    <message>
        <source>--record needs --headless.</source>
        <translation>--record braucht --headless.</translation>
    </message>
    <message>
        <source>--headless records one file at most.</source>
        <translation>--headless nimmt höchstens eine Datei auf.</translation>
    </message>
    <message>
        <source>--shift needs a number of seconds, such as 12.5 or -3.</source>
        <translation>--shift braucht eine Zahl von Sekunden, etwa 12.5 oder -3.</translation>
    </message>
    <message>
        <source>&quot;write&quot; needs the file with the chapters and an audio file.</source>
        <translation>„write“ braucht die Datei mit den Kapiteln und eine Audiodatei.</translation>
    </message>
    <message>
        <source>--output goes with one audio file only.</source>
        <translation>--output geht nur mit einer einzigen Audiodatei.</translation>
    </message>
    <message>
        <source>A file name is empty.</source>
        <translation>Ein Dateiname ist leer.</translation>
    </message>
    <message>
        <source>--new and --headless cannot be used together.</source>
        <translation>--new und --headless gehen nicht zusammen.</translation>
    </message>
    <message>
        <source>--item needs a number from 1 on.</source>
        <translation>--item braucht eine Zahl ab 1.</translation>
    </message>
    <message>
        <source>--pattern needs a text, such as &quot;({time}) {title} {link}&quot;.</source>
        <translation>--pattern braucht einen Text, etwa „({time}) {title} {link}“.</translation>
    </message>
    <message>
        <source>&quot;import&quot; needs --output with the document to make.</source>
        <translation>„import“ braucht --output mit dem Dokument, das entstehen soll.</translation>
    </message>
    <message>
        <source>&quot;import&quot; needs exactly one file to read.</source>
        <translation>„import“ braucht genau eine Datei zum Lesen.</translation>
    </message>
    <message>
        <source>--zero needs a number of seconds, such as 12.5.</source>
        <translation>--zero braucht eine Zahl von Sekunden, zum Beispiel 12.5.</translation>
    </message>
    <message>
        <source>&quot;fit&quot; needs --finished with the finished audio file.</source>
        <translation>„fit“ braucht --finished mit der fertigen Audiodatei.</translation>
    </message>
    <message>
        <source>&quot;fit&quot; needs exactly one file with chapters.</source>
        <translation>„fit“ braucht genau eine Datei mit Kapiteln.</translation>
    </message>
    <message>
        <source>--follow needs obs, jack or osc.</source>
        <translation>--follow braucht obs, jack oder osc.</translation>
    </message>
    <message>
        <source>--follow needs --headless.</source>
        <translation>--follow braucht --headless.</translation>
    </message>
    <message>
        <source>--zero needs --heard.</source>
        <translation>--zero braucht --heard.</translation>
    </message>
    <message>
        <source>--listen needs the name of an input, or &quot;default&quot;.</source>
        <translation>--listen braucht den Namen eines Eingangs oder „default“.</translation>
    </message>
    <message>
        <source>--listen needs --headless.</source>
        <translation>--listen braucht --headless.</translation>
    </message>
    <message>
        <source>Usage:
  zelta [--new] [FILE…]                open documents in windows, with --new a new one too
  zelta --headless [--record] [FILE]   record without a window, driven by OSC; --record starts the clock at once;
                                       a FILE that is missing is made when its name ends in .zelta
        --osc-port N                   listen on this UDP port in this run; 0 for any that is free
        --osc-send HOST:PORT           send the recorder&apos;s state there in this run; may be given several times
        --follow obs|jack|osc          start, pause and stop the clock with this recorder, and keep it in step
        --listen SOURCE                keep how the show sounds, as this input of the sound server hears it;
                                       &quot;default&quot; for the default one
  zelta send ACTION [--osc-port N]     give the running recorder a command, by default the one of this user;
                                       with --osc-port the one on that port of this computer
%1  zelta formats                        list the export formats: name, tab, file type
  zelta export --format NAME [--option] [--pattern TEXT] --output OUT FILE
                                       write the chapters of FILE to OUT, - for the standard output; --option
                                       ticks the format&apos;s checkbox, --pattern is a line of Show Notes such as
                                       &quot;({time}) {title} {link}&quot;
  zelta import [--shift SECONDS] [--item N] [--add] --output OUT FILE
                                       make the document OUT of the chapters in FILE, a list or an audio file; with
                                       --add, add them to OUT; --item chooses in a feed with several shows
  zelta show [--json] [--item N] FILE  print the chapters of FILE, a document, an audio file or a list
  zelta write [--shift SECONDS] [--output OUT] FILE AUDIO…
                                       put the chapters of FILE into each audio file in place of its own,
                                       with --output into a copy of the one that is given
  zelta fit --finished AUDIO [--heard RAW [--zero SECONDS]] [--output OUT] [--json] FILE
                                       find the chapters of FILE in the finished AUDIO, by what was heard along
                                       or by the raw recording; SECONDS is where the clock&apos;s zero lies in RAW, OUT
                                       a new document
  zelta --help | --version

Exit status: 0 done, 1 failed, 2 wrong usage. A file named like a command is given as ./NAME.
</source>
        <translation>Aufruf:
  zelta [--new] [DATEI…]               öffnet Dokumente in Fenstern, mit --new auch ein neues
  zelta --headless [--record] [DATEI]  nimmt ohne Fenster auf, gesteuert über OSC; --record startet die Uhr sofort;
                                       fehlt DATEI, wird sie angelegt, wenn ihr Name auf .zelta endet
        --osc-port N                   hört bei diesem Lauf auf diesen UDP-Port; 0 für irgendeinen freien
        --osc-send RECHNER:PORT        sendet den Stand bei diesem Lauf dorthin; auch mehrmals
        --follow obs|jack|osc          startet, pausiert und stoppt die Uhr mit diesem Rekorder, im Gleichlauf
        --listen QUELLE                bewahrt auf, wie die Sendung klingt, wie dieser Eingang des Tonservers sie hört;
                                       „default“ für den Standardeingang
  zelta send AKTION [--osc-port N]     gibt dem laufenden Rekorder einen Befehl, sonst dem dieses Benutzers;
                                       mit --osc-port dem an diesem Port dieses Computers
%1  zelta formats                        zählt die Exportformate auf: Name, Tabulator, Dateityp
  zelta export --format NAME [--option] [--pattern TEXT] --output ZIEL DATEI
                                       schreibt die Kapitel von DATEI nach ZIEL, - für die Standardausgabe;
                                       --option setzt das Häkchen des Formats, --pattern ist eine Zeile von
                                       Show Notes, etwa „({time}) {title} {link}“
  zelta import [--shift SEKUNDEN] [--item N] [--add] --output ZIEL DATEI
                                       macht aus den Kapiteln in DATEI, einer Liste oder Audiodatei, das Dokument
                                       ZIEL; --add fügt sie zu ZIEL hinzu; --item wählt in einem Feed mit
                                       mehreren Sendungen
  zelta show [--json] [--item N] DATEI gibt die Kapitel von DATEI aus, einem Dokument, einer Audiodatei oder Liste
  zelta write [--shift SEKUNDEN] [--output ZIEL] DATEI AUDIO…
                                       schreibt die Kapitel von DATEI in jede Audiodatei, anstelle der eigenen,
                                       mit --output in eine Kopie der einen, die angegeben ist
  zelta fit --finished AUDIO [--heard ROH [--zero SEKUNDEN]] [--output ZIEL] [--json] DATEI
                                       findet die Kapitel von DATEI im fertigen AUDIO, nach dem Mitgehörten oder mit
                                       Hilfe der rohen Aufnahme; SEKUNDEN ist die Stelle in ROH, an der die Uhr
                                       beginnt, ZIEL ein neues Dokument
  zelta --help | --version

Endstatus: 0 erledigt, 1 gescheitert, 2 falscher Aufruf. Eine Datei, die wie ein Befehl heißt, wird als ./NAME angegeben.
</translation>
    </message>
</context>
<context>
    <name>ZLCommandSocket</name>
    <message>
        <source>Zelta is not running.</source>
        <translation>Zelta läuft nicht.</translation>
    </message>
    <message>
        <source>Zelta did not answer.</source>
        <translation>Zelta hat nicht geantwortet.</translation>
    </message>
</context>
<context>
    <name>ZLConcern</name>
    <message>
        <source>&quot;%1&quot; %2</source>
        <translation>„%1“ %2</translation>
    </message>
</context>
<context>
    <name>ZLConcernChoice</name>
    <message>
        <source>Continue as if Never Stopped</source>
        <translation>Weiter, als hätte sie nie gestanden</translation>
    </message>
    <message>
        <source>lets it run as if it had never stopped</source>
        <translation>lässt sie laufen, als hätte sie nie gestanden</translation>
    </message>
    <message>
        <source>let the clock of an interrupted recording run as if it had never stopped</source>
        <translation>lässt die Uhr einer unterbrochenen Aufnahme laufen, als hätte sie nie gestanden</translation>
    </message>
    <message>
        <source>no recording was interrupted</source>
        <translation>keine Aufnahme wurde unterbrochen</translation>
    </message>
    <message>
        <source>Stay Paused</source>
        <translation>Pausiert lassen</translation>
    </message>
    <message>
        <source>keeps it paused</source>
        <translation>lässt sie pausiert</translation>
    </message>
    <message>
        <source>keep the clock of an interrupted recording paused at its last reading</source>
        <translation>lässt die Uhr einer unterbrochenen Aufnahme beim letzten Stand pausiert</translation>
    </message>
    <message>
        <source>Add That Time</source>
        <translation>Zeit hinzurechnen</translation>
    </message>
    <message>
        <source>adds that time to it and to the chapters after it</source>
        <translation>rechnet diese Zeit zu ihr und zu den Kapiteln danach hinzu</translation>
    </message>
    <message>
        <source>add the time for which the computer slept to the clock and the chapters after it</source>
        <translation>rechnet die Zeit, die der Computer schlief, zur Uhr und zu den Kapiteln danach hinzu</translation>
    </message>
    <message>
        <source>the computer did not sleep</source>
        <translation>der Computer hat nicht geschlafen</translation>
    </message>
    <message>
        <source>Leave It Out</source>
        <translation>Weglassen</translation>
    </message>
    <message>
        <source>leaves it</source>
        <translation>lässt sie</translation>
    </message>
    <message>
        <source>leave out the time for which the computer slept</source>
        <translation>lässt die Zeit weg, die der Computer schlief</translation>
    </message>
    <message>
        <source>Keep Mine</source>
        <translation>Meines behalten</translation>
    </message>
    <message>
        <source>writes over it</source>
        <translation>überschreibt das</translation>
    </message>
    <message>
        <source>write over what another program made of the file</source>
        <translation>überschreibt, was ein anderes Programm aus der Datei gemacht hat</translation>
    </message>
    <message>
        <source>no other program changed the file</source>
        <translation>kein anderes Programm hat die Datei geändert</translation>
    </message>
    <message>
        <source>Take Theirs</source>
        <translation>Das andere übernehmen</translation>
    </message>
    <message>
        <source>takes it over</source>
        <translation>übernimmt es</translation>
    </message>
    <message>
        <source>take over what another program made of the file</source>
        <translation>übernimmt, was ein anderes Programm aus der Datei gemacht hat</translation>
    </message>
    <message>
        <source>Keep Both</source>
        <translation>Beide behalten</translation>
    </message>
    <message>
        <source>goes on in a new file</source>
        <translation>macht in einer neuen Datei weiter</translation>
    </message>
    <message>
        <source>leave the file to the other program and go on in a new one</source>
        <translation>überlässt die Datei dem anderen Programm und macht in einer neuen weiter</translation>
    </message>
    <message>
        <source>Try Now</source>
        <translation>Jetzt versuchen</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Speichern unter&#xa0;…</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>sets the clock and the chapters since then to it</source>
        <translation>stellt die Uhr und die Kapitel seitdem danach</translation>
    </message>
    <message>
        <source>set the clock, and the chapters since it differs, to the recorder&apos;s time</source>
        <translation>die Uhr, und die Kapitel seit der Abweichung, nach dem Rekorder stellen</translation>
    </message>
    <message>
        <source>no recorder differs from the clock</source>
        <translation>kein Rekorder weicht von der Uhr ab</translation>
    </message>
    <message>
        <source>leaves the clock as it is</source>
        <translation>lässt die Uhr, wie sie ist</translation>
    </message>
    <message>
        <source>leave the clock as it is though the recorder&apos;s time differs</source>
        <translation>die Uhr lassen, wie sie ist, obwohl der Rekorder abweicht</translation>
    </message>
    <message>
        <source>Take the Recorder&apos;s Time</source>
        <translation>Zeit des Rekorders übernehmen</translation>
    </message>
    <message>
        <source>Keep Zelta&apos;s</source>
        <translation>Die von Zelta behalten</translation>
    </message>
</context>
<context>
    <name>ZLCopyAsMenu</name>
    <message>
        <source>%1 – %2</source>
        <translation>%1 – %2</translation>
    </message>
    <message>
        <source>C&amp;opy As</source>
        <translation>Kopieren al&amp;s</translation>
    </message>
    <message>
        <source>Copied as %1.</source>
        <translation>Kopiert als %1.</translation>
    </message>
</context>
<context>
    <name>ZLCueSheet</name>
    <message>
        <source>The sheet speaks of %1 files, and the times of each begin at 0.</source>
        <translation>Das Blatt nennt %1 Dateien, und die Zeiten jeder beginnen bei 0.</translation>
    </message>
    <message>
        <source>This track has no time and was left out.</source>
        <translation>Dieser Titel hat keine Zeit und wurde ausgelassen.</translation>
    </message>
</context>
<context>
    <name>ZLDelivery</name>
    <message>
        <source>%1: no enabled chapter lies in this file, so nothing was written.</source>
        <translation>%1: Kein eingeschaltetes Kapitel liegt in dieser Datei, deshalb wurde nichts geschrieben.</translation>
    </message>
    <message>
        <source>%1 of %2 chapters are in %3</source>
        <translation>%1 von %2 Kapiteln sind in %3</translation>
    </message>
</context>
<context>
    <name>ZLDeliveryComparison</name>
    <message>
        <source>Choose the finished audio files, or drop them on this window.</source>
        <translation>Wähle die fertigen Audiodateien, oder ziehe sie auf dieses Fenster.</translation>
    </message>
    <message>
        <source>No enabled chapter lies in this file, so it will not be written.</source>
        <translation>In dieser Datei liegt kein aktives Kapitel, deshalb wird sie nicht geschrieben.</translation>
    </message>
    <message>
        <source>In the file now: %1</source>
        <translation>Jetzt in der Datei: %1</translation>
    </message>
    <message>
        <source>After writing: %1</source>
        <translation>Nach dem Schreiben: %1</translation>
    </message>
</context>
<context>
    <name>ZLDeliveryDraft</name>
    <message>
        <source>%1 was not written.</source>
        <translation>%1 wurde nicht geschrieben.</translation>
    </message>
    <message>
        <source>The chapters are at the places where they were found in this file. No shift is added.</source>
        <translation>Die Kapitel stehen da, wo sie in dieser Datei gefunden wurden. Ein Versatz kommt nicht dazu.</translation>
    </message>
</context>
<context>
    <name>ZLDeliveryFilesModel</name>
    <message>
        <source>Reading…</source>
        <translation>Wird gelesen&#xa0;…</translation>
    </message>
    <message>
        <source>Writing…</source>
        <translation>Wird geschrieben&#xa0;…</translation>
    </message>
    <message>
        <source>Chapters now: %1, to come: %2</source>
        <translation>Kapitel jetzt: %1, künftig: %2</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Form</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Stand</translation>
    </message>
    <message>
        <source>Audio files</source>
        <translation>Audiodateien</translation>
    </message>
</context>
<context>
    <name>ZLDeliveryFindings</name>
    <message>
        <source>Chapters before the start of the file, left out: %1.</source>
        <translation>Kapitel vor dem Anfang der Datei, weggelassen: %1.</translation>
    </message>
    <message>
        <source>Chapters behind the end of the file, left out: %1.</source>
        <translation>Kapitel hinter dem Ende der Datei, weggelassen: %1.</translation>
    </message>
    <message>
        <source>%1 holds %2 chapters at most. Left out at the end: %3.</source>
        <translation>%1 fasst höchstens %2 Kapitel. Am Ende weggelassen: %3.</translation>
    </message>
    <message>
        <source>Chapters without a title, written with an empty one: %1.</source>
        <translation>Kapitel ohne Titel, mit leerem Titel geschrieben: %1.</translation>
    </message>
    <message>
        <source>Chapters at the time of the one before, of which a player may show only one; they are written in their order: %1.</source>
        <translation>Kapitel zur selben Zeit wie das davor, von denen ein Abspielprogramm vielleicht nur eines zeigt; sie werden der Reihe nach geschrieben: %1.</translation>
    </message>
    <message>
        <source>%1 holds no links. Links left out: %2.</source>
        <translation>%1 fasst keine Links. Weggelassene Links: %2.</translation>
    </message>
    <message>
        <source>Titles of more than %1 bytes, of which some players show only the beginning: %2.</source>
        <translation>Titel mit mehr als %1 Bytes, von denen manche Abspielprogramme nur den Anfang zeigen: %2.</translation>
    </message>
    <message>
        <source>Pictures of chapters in the file that are lost, since no new chapter stands at their time: %1.</source>
        <translation>Bilder von Kapiteln in der Datei, die verloren gehen, weil zu ihrer Zeit kein neues Kapitel steht: %1.</translation>
    </message>
</context>
<context>
    <name>ZLDeliveryJob</name>
    <message>
        <source>%1: Another program changed this file since it was read, so nothing was written. Look at it again.</source>
        <translation>%1: Ein anderes Programm hat diese Datei geändert, seit sie gelesen wurde. Deshalb wurde nichts geschrieben. Sieh sie dir noch einmal an.</translation>
    </message>
</context>
<context>
    <name>ZLDeliverySheet</name>
    <message>
        <source>Write Chapters into Audio File</source>
        <translation>Kapitel in Audiodatei schreiben</translation>
    </message>
    <message>
        <source>Shift in seconds</source>
        <translation>Versatz in Sekunden</translation>
    </message>
    <message>
        <source>The chapters come this much later in the file than in the document, because of an intro.</source>
        <translation>Um so viel später kommen die Kapitel in der Datei als im Dokument, wegen eines Vorspanns.</translation>
    </message>
    <message>
        <source>Progress of the writing</source>
        <translation>Fortschritt des Schreibens</translation>
    </message>
    <message>
        <source>Write</source>
        <translation>Schreiben</translation>
    </message>
    <message>
        <source>Choose Files…</source>
        <translation>Dateien wählen&#xa0;…</translation>
    </message>
    <message>
        <source>Import Its Chapters</source>
        <translation>Ihre Kapitel importieren</translation>
    </message>
    <message>
        <source>Add the chapters that are in the selected file now to the document</source>
        <translation>Die Kapitel, die jetzt in der gewählten Datei sind, dem Dokument hinzufügen</translation>
    </message>
    <message>
        <source>Shift (s):</source>
        <translation>Versatz (s):</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Choose Audio Files</source>
        <translation>Audiodateien wählen</translation>
    </message>
    <message>
        <source>Audio files (%1)</source>
        <translation>Audiodateien (%1)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Chapters were written into %1 of %2 files.</source>
        <translation>Kapitel wurden in %1 von %2 Dateien geschrieben.</translation>
    </message>
    <message>
        <source>Imported chapters: %1</source>
        <translation>Importierte Kapitel: %1</translation>
    </message>
</context>
<context>
    <name>ZLDocumentConcerns</name>
    <message>
        <source>“%1”</source>
        <translation>„%1“</translation>
    </message>
    <message>
        <source>Another program changed %1.</source>
        <translation>Ein anderes Programm hat %1 geändert.</translation>
    </message>
    <message>
        <source>The recording was interrupted on %1 at %2, at %3 of the clock. The clock is paused until you decide.</source>
        <translation>Die Aufnahme wurde am %1 um %2 unterbrochen, bei %3 auf der Uhr. Die Uhr bleibt pausiert, bis die Entscheidung fällt.</translation>
    </message>
    <message>
        <source>%1 is also open elsewhere (%2). Changes made there are never overwritten without asking.</source>
        <translation>%1 ist auch anderswo offen (%2). Änderungen von dort werden nie ohne Nachfrage überschrieben.</translation>
    </message>
    <message>
        <source>The recovery folder cannot be written: %1 A crash may take what is not in the file yet. Zelta keeps trying.</source>
        <translation>In den Wiederherstellungsordner kann nicht geschrieben werden: %1 Bei einem Absturz kann verloren gehen, was noch nicht in der Datei steht. Zelta versucht es weiter.</translation>
    </message>
    <message>
        <source>The document is not saved: %1 Zelta keeps trying.</source>
        <translation>Das Dokument ist nicht gespeichert: %1 Zelta versucht es weiter.</translation>
    </message>
    <message>
        <source>Cannot save: %1 Trying again until it works.</source>
        <translation>Speichern nicht möglich: %1 Es wird weiter versucht, bis es gelingt.</translation>
    </message>
    <message>
        <source>%1 is read-only. Changes are kept, but they cannot be saved to this file.</source>
        <translation>%1 ist schreibgeschützt. Änderungen werden aufbewahrt, lassen sich aber nicht in dieser Datei speichern.</translation>
    </message>
    <message>
        <source>The recorder&apos;s time is %1 s ahead of Zelta&apos;s clock.</source>
        <translation>Die Zeit des Rekorders ist der Uhr von Zelta um %1 s voraus.</translation>
    </message>
    <message>
        <source>The recorder&apos;s time is %1 s behind Zelta&apos;s clock.</source>
        <translation>Die Zeit des Rekorders ist um %1 s hinter der Uhr von Zelta.</translation>
    </message>
</context>
<context>
    <name>ZLDocumentController</name>
    <message>
        <source>“%1” is recording. Pause the recording before you close it.</source>
        <translation>„%1“ nimmt auf. Vor dem Schließen bitte die Aufnahme pausieren.</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <source>Untitled %1</source>
        <translation>Ohne Titel %1</translation>
    </message>
    <message>
        <source>Too many documents are open at once, so not every one was opened. Close some, then try again.</source>
        <translation>Zu viele Dokumente sind gleichzeitig offen, darum wurden nicht alle geöffnet. Schließen Sie einige und versuchen Sie es dann noch einmal.</translation>
    </message>
</context>
<context>
    <name>ZLDocumentFile</name>
    <message>
        <source>This is not a Zelta document.</source>
        <translation>Das ist kein Zelta-Dokument.</translation>
    </message>
</context>
<context>
    <name>ZLDocumentLock</name>
    <message>
        <source>another program</source>
        <translation>ein anderes Programm</translation>
    </message>
    <message>
        <source>%1, process %2</source>
        <translation>%1, Prozess %2</translation>
    </message>
</context>
<context>
    <name>ZLDocumentMaker</name>
    <message>
        <source>%1 (recovered)</source>
        <translation>%1 (wiederhergestellt)</translation>
    </message>
</context>
<context>
    <name>ZLDocumentSaver</name>
    <message>
        <source>“%1” is not in a file yet.</source>
        <translation>„%1“ hat noch keine Datei.</translation>
    </message>
</context>
<context>
    <name>ZLDocumentToolbar</name>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Templates</source>
        <translation>Vorlagen</translation>
    </message>
    <message>
        <source>Recorded time</source>
        <translation>Aufgenommene Zeit</translation>
    </message>
    <message>
        <source>Time since the last chapter</source>
        <translation>Zeit seit dem letzten Kapitel</translation>
    </message>
    <message>
        <source>in chapter</source>
        <translation>im Kapitel</translation>
    </message>
    <message>
        <source>Title of the next chapter</source>
        <translation>Titel des nächsten Kapitels</translation>
    </message>
    <message>
        <source>The next chapter takes this title: %1</source>
        <translation>Das nächste Kapitel bekommt diesen Titel: %1</translation>
    </message>
</context>
<context>
    <name>ZLDocumentWindows</name>
    <message>
        <source>Not everything could be saved: %1</source>
        <translation>Nicht alles ließ sich speichern: %1</translation>
    </message>
    <message>
        <source>Quit Anyway</source>
        <translation>Trotzdem beenden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cannot save: %1</source>
        <translation>Speichern nicht möglich: %1</translation>
    </message>
    <message>
        <source>Pause the recording before quitting.</source>
        <translation>Vor dem Beenden bitte die Aufnahme pausieren.</translation>
    </message>
</context>
<context>
    <name>ZLDrawerSlide</name>
    <message>
        <source>Closes the templates</source>
        <translation>Schließt die Vorlagen</translation>
    </message>
</context>
<context>
    <name>ZLEditMenu</name>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>A&amp;lles auswählen</translation>
    </message>
    <message>
        <source>&amp;Delete Chapter</source>
        <translation>Kapitel lösc&amp;hen</translation>
    </message>
    <message>
        <source>&amp;Import Templates from Clipboard</source>
        <translation>Vorlagen aus der &amp;Zwischenablage importieren</translation>
    </message>
</context>
<context>
    <name>ZLExportAdvice</name>
    <message>
        <source>No enabled chapters: the file will be empty.</source>
        <translation>Keine aktiven Kapitel: Die Datei wird leer.</translation>
    </message>
    <message>
        <source>No enabled chapters: the file will hold none.</source>
        <translation>Keine aktiven Kapitel: Die Datei wird keine enthalten.</translation>
    </message>
    <message>
        <source>A negative time is written without its sign: see %1.</source>
        <translation>Negative Zeiten werden ohne Vorzeichen geschrieben: siehe %1.</translation>
    </message>
    <message>
        <source>Players show one of two chapters with the same time: %1.</source>
        <translation>Von zwei Kapiteln mit gleicher Zeit zeigen Abspielprogramme nur eines: %1.</translation>
    </message>
    <message>
        <source>A chapter is one line here: there is a line break in %1.</source>
        <translation>Ein Kapitel ist hier eine Zeile: In %1 steht ein Zeilenumbruch.</translation>
    </message>
    <message>
        <source>Chapter readers misread &lt; and &gt; as a link: there is one in the title of %1.</source>
        <translation>Programme, die Kapitel lesen, halten &lt; und &gt; für einen Link: Im Titel von %1 steht eines davon.</translation>
    </message>
    <message>
        <source>Markers with a negative time are left out: see %1.</source>
        <translation>Marker mit negativer Zeit entfallen: siehe %1.</translation>
    </message>
    <message>
        <source>The clip ends with the recording, before %1.</source>
        <translation>Der Clip endet mit der Aufnahme, vor %1.</translation>
    </message>
    <message>
        <source>Marker times end after 596 hours, before %1.</source>
        <translation>Markerzeiten enden nach 596 Stunden, vor %1.</translation>
    </message>
    <message>
        <source>The project gets the name of the file as it is: with &amp;, &lt; or &quot; in it, Final Cut Pro will not open the file.</source>
        <translation>Das Projekt erhält den Dateinamen, wie er ist: Mit &amp;, &lt; oder &quot; darin wird Final Cut Pro die Datei nicht öffnen.</translation>
    </message>
    <message>
        <source>No enabled chapters: the session will get no markers.</source>
        <translation>Keine aktiven Kapitel: Die Session bekommt keine Marker.</translation>
    </message>
    <message>
        <source>The session has no &lt;/Session&gt;: there is no place for the markers.</source>
        <translation>Die Session hat kein &lt;/Session&gt;: Für die Marker ist kein Platz.</translation>
    </message>
    <message>
        <source>A session with &lt; or &quot; in a text may not open again: there is one in %1.</source>
        <translation>Eine Session mit &lt; oder &quot; in einem Text lässt sich womöglich nicht mehr öffnen: In %1 steht eines davon.</translation>
    </message>
    <message>
        <source>Times are whole seconds: %1 fall into the same second.</source>
        <translation>Zeiten sind ganze Sekunden: In dieselbe Sekunde fallen %1.</translation>
    </message>
    <message>
        <source>Markdown reads * _ ` [ ] &lt; and \ as formatting: there is one in the title of %1.</source>
        <translation>Markdown liest * _ ` [ ] &lt; und \ als Formatierung: Im Titel von %1 steht eines davon.</translation>
    </message>
    <message>
        <source>Markdown links break at blanks, &lt; or &gt; and unpaired parentheses: see the link of %1.</source>
        <translation>Markdown-Links brechen an Leerzeichen, &lt; oder &gt; und einzelnen Klammern: siehe den Link von %1.</translation>
    </message>
    <message>
        <source>A tag needs a text: there is no title in %1.</source>
        <translation>Ein Tag braucht einen Text: In %1 fehlt der Titel.</translation>
    </message>
    <message>
        <source>All tags stand on one line: there is a line break in %1.</source>
        <translation>Alle Tags stehen in einer Zeile: In %1 steht ein Zeilenumbruch.</translation>
    </message>
    <message>
        <source>YouTube takes no &lt; or &gt; in a description: there is one in the title of %1.</source>
        <translation>YouTube nimmt kein &lt; oder &gt; in einer Beschreibung: Im Titel von %1 steht eines.</translation>
    </message>
    <message>
        <source>YouTube takes no &lt; or &gt; in a description: remove them around the link of %1.</source>
        <translation>YouTube nimmt kein &lt; oder &gt; in einer Beschreibung: Beim Link von %1 bitte entfernen.</translation>
    </message>
    <message>
        <source>Control characters are shown as boxes or break the text: there is one in %1.</source>
        <translation>Steuerzeichen erscheinen als Kästchen oder stören den Text: In %1 steht eines.</translation>
    </message>
    <message>
        <source>A broken character will not be written: there is one in %1.</source>
        <translation>Ein halbes Zeichen lässt sich nicht schreiben: In %1 steht eines.</translation>
    </message>
    <message>
        <source>The session already has markers with the same time and name, which will come twice: %1.</source>
        <translation>Die Session hat schon Marker mit gleicher Zeit und gleichem Namen, sie stehen dann doppelt da: %1.</translation>
    </message>
    <message>
        <source>YouTube will ignore these chapters: %1.</source>
        <translation>YouTube wird diese Kapitel übergehen: %1.</translation>
    </message>
    <message>
        <source>Players do not support negative times: see %1.</source>
        <translation>Abspielprogramme kennen keine negativen Zeiten: siehe %1.</translation>
    </message>
    <message>
        <source>Players never reach chapters after the end of the recording: see %1.</source>
        <translation>Abspielprogramme erreichen keine Kapitel nach dem Ende der Aufnahme: siehe %1.</translation>
    </message>
    <message>
        <source>XML allows no control characters, so the file will not open: there is one in %1.</source>
        <translation>XML erlaubt keine Steuerzeichen, die Datei wird sich nicht öffnen lassen: In %1 steht eines.</translation>
    </message>
    <message>
        <source>Players show chapters by their titles: there is none in %1.</source>
        <translation>Abspielprogramme zeigen Kapitel mit ihrem Titel: In %1 fehlt er.</translation>
    </message>
    <message>
        <source>No chapters at 00:00 or later: the project will have no markers.</source>
        <translation>Keine Kapitel ab 00:00: Das Projekt wird keine Marker haben.</translation>
    </message>
    <message>
        <source>The recording is still running: the clip will end where it was last paused.</source>
        <translation>Die Aufnahme läuft noch: Der Clip endet dort, wo sie zuletzt pausiert wurde.</translation>
    </message>
    <message>
        <source>Hindenburg does not support negative times: see %1.</source>
        <translation>Hindenburg kennt keine negativen Zeiten: siehe %1.</translation>
    </message>
    <message>
        <source>A comma makes two tags of one title: there is one in %1.</source>
        <translation>Ein Komma macht aus einem Titel zwei Tags: In %1 steht eines.</translation>
    </message>
    <message>
        <source>YouTube needs rising times in whole seconds: %1 fall into the same second.</source>
        <translation>YouTube braucht aufsteigende Zeiten in ganzen Sekunden: In dieselbe Sekunde fallen %1.</translation>
    </message>
    <message>
        <source>A YouTube description holds 5000 bytes at most: this list has %1.</source>
        <translation>Eine YouTube-Beschreibung fasst höchstens 5000 Bytes: Diese Liste hat %1.</translation>
    </message>
</context>
<context>
    <name>ZLExportAdviceView</name>
    <message>
        <source>Attention</source>
        <translation>Achtung</translation>
    </message>
</context>
<context>
    <name>ZLExportAgainDisplay</name>
    <message>
        <source>“%1” is gone.</source>
        <translation>„%1“ ist nicht mehr da.</translation>
    </message>
    <message>
        <source>“%1” was changed by another program.</source>
        <translation>„%1“ wurde von einem anderen Programm verändert.</translation>
    </message>
    <message>
        <source>“%1” is open in another program.</source>
        <translation>„%1“ ist in einem anderen Programm geöffnet.</translation>
    </message>
    <message>
        <source>“%1” cannot be read.</source>
        <translation>„%1“ lässt sich nicht lesen.</translation>
    </message>
    <message>
        <source>Write All</source>
        <translation>Alle schreiben</translation>
    </message>
    <message>
        <source>Write the Others</source>
        <translation>Die übrigen schreiben</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Exported again: %1.</source>
        <translation>Erneut exportiert: %1.</translation>
    </message>
    <message>
        <source>This document has not been exported to a file yet.</source>
        <translation>Dieses Dokument wurde noch in keine Datei exportiert.</translation>
    </message>
    <message>
        <source>Left out, as chapters in a session would come twice: %1.</source>
        <translation>Ausgelassen, weil Kapitel in einer Session doppelt kämen: %1.</translation>
    </message>
    <message>
        <source>The export failed. %1</source>
        <translation>Der Export ist gescheitert. %1</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Write</source>
        <translation>Schreiben</translation>
    </message>
</context>
<context>
    <name>ZLExportDisplay</name>
    <message>
        <source>Exported %1.</source>
        <translation>%1 exportiert.</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Im Ordner zeigen</translation>
    </message>
    <message>
        <source>The export failed. %1</source>
        <translation>Der Export ist fehlgeschlagen. %1</translation>
    </message>
    <message>
        <source>No chapters were inserted into “%1”. %2</source>
        <translation>In „%1“ wurden keine Kapitel eingefügt. %2</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>ZLExportFindings</name>
    <message>
        <source>chapters %1 and %2</source>
        <translation>Kapitel %1 und %2</translation>
    </message>
    <message>
        <source>%1 (each with the one before)</source>
        <translation>%1 (jeweils mit dem davor)</translation>
    </message>
    <message>
        <source>chapter %1 is only %2 s long (10 s minimum)</source>
        <translation>Kapitel %1 ist nur %2 s lang (mindestens 10 s)</translation>
    </message>
    <message>
        <source>%1 are shorter than 10 s</source>
        <translation>%1 sind kürzer als 10 s</translation>
    </message>
    <message>
        <source>the first is at %1 (00:00 needed)</source>
        <translation>das erste ist bei %1 (nötig ist 00:00)</translation>
    </message>
    <message>
        <source>there is only 1 (3 minimum)</source>
        <translation>es ist nur 1 (mindestens 3)</translation>
    </message>
    <message>
        <source>there are only %1 (3 minimum)</source>
        <translation>es sind nur %1 (mindestens 3)</translation>
    </message>
</context>
<context>
    <name>ZLExportFlow</name>
    <message>
        <source>Export to %1</source>
        <translation>Export für %1</translation>
    </message>
    <message>
        <source>Zelta</source>
        <translation>Zelta</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>ZLExportFormat</name>
    <message>
        <source>Export all chapters as &lt;marker&gt; elements</source>
        <translation>Alle Kapitel als &lt;marker&gt;-Elemente exportieren</translation>
    </message>
    <message>
        <source>Include timestamps in markdown</source>
        <translation>Zeiten in das Markdown aufnehmen</translation>
    </message>
    <message>
        <source>Titles as Tags</source>
        <translation>Titel als Tags</translation>
    </message>
    <message>
        <source>Podcast Chapters</source>
        <translation>Podcast-Kapitel</translation>
    </message>
    <message>
        <source>Audacity Labels</source>
        <translation>Audacity-Textmarken</translation>
    </message>
    <message>
        <source>REAPER Markers</source>
        <translation>REAPER-Marker</translation>
    </message>
    <message>
        <source>Matroska Chapters</source>
        <translation>Matroska-Kapitel</translation>
    </message>
    <message>
        <source>WebVTT Chapters</source>
        <translation>WebVTT-Kapitel</translation>
    </message>
    <message>
        <source>CUE Sheet</source>
        <translation>CUE-Sheet</translation>
    </message>
    <message>
        <source>Show Notes</source>
        <translation>Shownotes</translation>
    </message>
</context>
<context>
    <name>ZLExportMenu</name>
    <message>
        <source>&amp;Export</source>
        <translation>&amp;Export</translation>
    </message>
    <message>
        <source>Write the chapters for %1</source>
        <translation>Die Kapitel für %1 schreiben</translation>
    </message>
    <message>
        <source>%1…</source>
        <translation>%1 …</translation>
    </message>
    <message>
        <source>Export Ot&amp;her</source>
        <translation>&amp;Weiterer Export</translation>
    </message>
</context>
<context>
    <name>ZLExporter</name>
    <message>
        <source>This format writes no file.</source>
        <translation>Dieses Format schreibt keine Datei.</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
</context>
<context>
    <name>ZLFFMetadata</name>
    <message>
        <source>This chapter has no time and was left out.</source>
        <translation>Dieses Kapitel hat keine Zeit und wurde ausgelassen.</translation>
    </message>
</context>
<context>
    <name>ZLFLACFormat</name>
    <message>
        <source>The description at the beginning of this FLAC file is damaged.</source>
        <translation>Die Beschreibung am Anfang dieser FLAC-Datei ist beschädigt.</translation>
    </message>
    <message>
        <source>The tags would become larger than a FLAC file can hold.</source>
        <translation>Die Tags würden größer, als eine FLAC-Datei fassen kann.</translation>
    </message>
</context>
<context>
    <name>ZLFfmpegReader</name>
    <message>
        <source>This form can be read when the program ffmpeg is installed.</source>
        <translation>Diese Form lässt sich lesen, wenn das Programm ffmpeg installiert ist.</translation>
    </message>
    <message>
        <source>The program ffmpeg does not answer.</source>
        <translation>Das Programm ffmpeg antwortet nicht.</translation>
    </message>
    <message>
        <source>There is no sound in it.</source>
        <translation>Es ist kein Ton darin.</translation>
    </message>
</context>
<context>
    <name>ZLFileCommands</name>
    <message>
        <source>The format &quot;%1&quot; has no option.</source>
        <translation>Das Format „%1“ hat keine Option.</translation>
    </message>
    <message>
        <source>There is no format &quot;%1&quot;; the formats are: %2.</source>
        <translation>Es gibt kein Format „%1“; die Formate sind: %2.</translation>
    </message>
    <message>
        <source>%1: the export would replace the document itself.</source>
        <translation>%1: Der Export würde das Dokument selbst ersetzen.</translation>
    </message>
    <message>
        <source>The standard output could not be written.</source>
        <translation>Die Standardausgabe ließ sich nicht schreiben.</translation>
    </message>
    <message>
        <source>%1: the audio file would replace the chapters&apos; own file.</source>
        <translation>%1: Die Audiodatei würde die Datei mit den Kapiteln ersetzen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; rewrites a session, so --output needs its file.</source>
        <translation>„%1“ schreibt eine Session um, deshalb braucht --output deren Datei.</translation>
    </message>
    <message>
        <source>The format &quot;%1&quot; has no line pattern.</source>
        <translation>Das Format „%1“ hat kein Zeilenmuster.</translation>
    </message>
</context>
<context>
    <name>ZLFileMenu</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen&#xa0;…</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter&#xa0;…</translation>
    </message>
    <message>
        <source>Re&amp;vert to Last Saved</source>
        <translation>Zum zuletzt &amp;gespeicherten Stand</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Open Chapters</source>
        <translation>Kapitel öffnen</translation>
    </message>
    <message>
        <source>Chapter documents (*.%1)</source>
        <translation>Kapiteldokumente (*.%1)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>&amp;Clear This List</source>
        <translation>Diese Liste &amp;leeren</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>&amp;Write Chapters into Audio File…</source>
        <translation>Kapitel in Audio&amp;datei schreiben&#xa0;…</translation>
    </message>
    <message>
        <source>&amp;Import Chapters…</source>
        <translation>&amp;Kapitel importieren&#xa0;…</translation>
    </message>
    <message>
        <source>Export A&amp;gain</source>
        <translation>Erneut e&amp;xportieren</translation>
    </message>
    <message>
        <source>Audio files (%1)</source>
        <translation>Audiodateien (%1)</translation>
    </message>
    <message>
        <source>Fit to &amp;Finished File…</source>
        <translation>An fertige Datei &amp;anpassen&#xa0;…</translation>
    </message>
</context>
<context>
    <name>ZLFileName</name>
    <message>
        <source>The name is not UTF-8 text. Rename the file.</source>
        <translation>Der Name ist kein UTF-8-Text. Benenne die Datei um.</translation>
    </message>
</context>
<context>
    <name>ZLFileOpening</name>
    <message>
        <source>Opening “%1”…</source>
        <translation>„%1“ wird geöffnet …</translation>
    </message>
</context>
<context>
    <name>ZLFileWords</name>
    <message>
        <source>Did you mean %1?</source>
        <translation>War %1 gemeint?</translation>
    </message>
    <message>
        <source>Did you mean %1 or %2?</source>
        <translation>War %1 oder %2 gemeint?</translation>
    </message>
    <message>
        <source>There is no file &quot;%1&quot;, and the name of a new one ends in .%2.</source>
        <translation>Es gibt keine Datei „%1“, und der Name einer neuen endet auf .%2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither a file nor a command.</source>
        <translation>„%1“ ist weder eine Datei noch ein Befehl.</translation>
    </message>
    <message>
        <source>The commands are %1; &quot;zelta --help&quot; explains them.</source>
        <translation>Die Befehle sind %1; „zelta --help“ erklärt sie.</translation>
    </message>
</context>
<context>
    <name>ZLFitChoices</name>
    <message>
        <source>Finished file</source>
        <translation>Fertige Datei</translation>
    </message>
    <message>
        <source>Choose the Finished File</source>
        <translation>Fertige Datei wählen</translation>
    </message>
    <message>
        <source>Sound of the show</source>
        <translation>Ton der Sendung</translation>
    </message>
    <message>
        <source>Start of the clock in the recording, in seconds</source>
        <translation>Beginn der Uhr in der Aufnahme, in Sekunden</translation>
    </message>
    <message>
        <source>Where in the recording the clock of this document started, in seconds from its beginning.</source>
        <translation>Wo in der Aufnahme die Uhr dieses Dokuments begonnen hat, in Sekunden von ihrem Anfang an.</translation>
    </message>
    <message>
        <source>Choose the Recording</source>
        <translation>Aufnahme wählen</translation>
    </message>
    <message>
        <source>Finished file:</source>
        <translation>Fertige Datei:</translation>
    </message>
    <message>
        <source>Choose File…</source>
        <translation>Datei wählen …</translation>
    </message>
    <message>
        <source>Sound of the show:</source>
        <translation>Ton der Sendung:</translation>
    </message>
    <message>
        <source>Choose Recording…</source>
        <translation>Aufnahme wählen …</translation>
    </message>
    <message>
        <source>Clock starts at (s):</source>
        <translation>Uhr beginnt bei (s):</translation>
    </message>
    <message>
        <source>No file chosen</source>
        <translation>Keine Datei gewählt</translation>
    </message>
    <message>
        <source>%1, %2, fitted</source>
        <translation>%1, %2, angepasst</translation>
    </message>
    <message>
        <source>What was heard along</source>
        <translation>Was mitgehört wurde</translation>
    </message>
    <message>
        <source>The raw recording: choose a file</source>
        <translation>Die rohe Aufnahme: Datei wählen</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Find Start</source>
        <translation>Beginn suchen</translation>
    </message>
    <message>
        <source>Find where the clock started: by what was heard along, or else by the start beep in the recording</source>
        <translation>Finden, wo die Uhr begonnen hat: mit dem Mitgehörten oder sonst mit dem Piepton in der Aufnahme</translation>
    </message>
    <message>
        <source>The recorder&apos;s file: %1</source>
        <translation>Datei des Rekorders: %1</translation>
    </message>
    <message>
        <source>The recorder&apos;s files: %1 to %2</source>
        <translation>Dateien des Rekorders: %1 bis %2</translation>
    </message>
</context>
<context>
    <name>ZLFitCommand</name>
    <message>
        <source>%1 is not the show: too little of %2 is in it.</source>
        <translation>%1 ist nicht die Sendung: Es ist zu wenig von %2 darin.</translation>
    </message>
    <message>
        <source>%1 is there already.</source>
        <translation>%1 gibt es schon.</translation>
    </message>
    <message>
        <source>Name the raw recording of the show with --heard.</source>
        <translation>Nenne die rohe Aufnahme der Sendung mit --heard.</translation>
    </message>
    <message>
        <source>what is known of the show</source>
        <translation>dem, was von der Sendung bekannt ist,</translation>
    </message>
</context>
<context>
    <name>ZLFitDraft</name>
    <message>
        <source>The fit was cancelled.</source>
        <translation>Die Suche wurde abgebrochen.</translation>
    </message>
    <message>
        <source>%1 is not this show: too little of %2 is in it.</source>
        <translation>%1 ist nicht diese Sendung: Zu wenig von %2 ist darin.</translation>
    </message>
    <message>
        <source>what was heard along</source>
        <translation>dem Mitgehörten</translation>
    </message>
    <message>
        <source>The search was cancelled.</source>
        <translation>Die Suche wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>ZLFitMarksModel</name>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Old Time</source>
        <translation>Alte Zeit</translation>
    </message>
    <message>
        <source>New Time</source>
        <translation>Neue Zeit</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Stand</translation>
    </message>
    <message>
        <source>Confidence</source>
        <translation>Sicherheit</translation>
    </message>
</context>
<context>
    <name>ZLFitPicture</name>
    <message>
        <source>in both</source>
        <translation>in beiden</translation>
    </message>
    <message>
        <source>cut out</source>
        <translation>herausgeschnitten</translation>
    </message>
    <message>
        <source>came in</source>
        <translation>hinzugekommen</translation>
    </message>
    <message>
        <source>played elsewhere too</source>
        <translation>auch an anderer Stelle</translation>
    </message>
    <message>
        <source>Picture of the fit</source>
        <translation>Bild der Anpassung</translation>
    </message>
    <message>
        <source>Pieces of the show that are in the finished file: %1. The list below has every mark.</source>
        <translation>Teile der Sendung, die in der fertigen Datei sind: %1. In der Liste darunter steht jedes Kapitel.</translation>
    </message>
    <message>
        <source>The show, %1</source>
        <translation>Die Sendung, %1</translation>
    </message>
    <message>
        <source>The finished file, %1</source>
        <translation>Die fertige Datei, %1</translation>
    </message>
</context>
<context>
    <name>ZLFitReport</name>
    <message>
        <source>kept</source>
        <translation>erhalten</translation>
    </message>
    <message>
        <source>moved to the seam</source>
        <translation>am Schnitt</translation>
    </message>
    <message>
        <source>cut</source>
        <translation>herausgeschnitten</translation>
    </message>
    <message>
        <source>not found</source>
        <translation>nicht gefunden</translation>
    </message>
    <message>
        <source>At %1 the file also has %2 to %3 of the show.</source>
        <translation>Bei %1 hat die Datei außerdem %2 bis %3 der Sendung.</translation>
    </message>
</context>
<context>
    <name>ZLFitSheet</name>
    <message>
        <source>Fit to Finished File</source>
        <translation>An fertige Datei anpassen</translation>
    </message>
    <message>
        <source>Chapters in the finished file</source>
        <translation>Kapitel in der fertigen Datei</translation>
    </message>
    <message>
        <source>Progress of the fit</source>
        <translation>Fortschritt der Anpassung</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Put the chapters of this document to their places in the finished file</source>
        <translation>Die Kapitel dieses Dokuments an ihre Stellen in der fertigen Datei setzen</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Play four seconds of the finished file at the new place of the selected chapter</source>
        <translation>Vier Sekunden der fertigen Datei an der neuen Stelle des gewählten Kapitels abspielen</translation>
    </message>
    <message>
        <source>Find Chapters</source>
        <translation>Kapitel suchen</translation>
    </message>
    <message>
        <source>New Document</source>
        <translation>Neues Dokument</translation>
    </message>
    <message>
        <source>Make a new document of the chapters at their new places, and leave this one as it is</source>
        <translation>Aus den Kapiteln an ihren neuen Stellen ein neues Dokument machen und dieses lassen, wie es ist</translation>
    </message>
    <message>
        <source>Write into File…</source>
        <translation>In Datei schreiben …</translation>
    </message>
    <message>
        <source>Write the chapters at their new places into the finished file</source>
        <translation>Die Kapitel an ihren neuen Stellen in die fertige Datei schreiben</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Choose the finished file, and the recording as it was before it was cut.</source>
        <translation>Wähle die fertige Datei und die Aufnahme, wie sie vor dem Schneiden war.</translation>
    </message>
    <message>
        <source>Kept: %1, moved to the seam: %2, cut: %3, not found: %4.</source>
        <translation>Erhalten: %1, am Schnitt: %2, herausgeschnitten: %3, nicht gefunden: %4.</translation>
    </message>
    <message>
        <source>The chapters of this document follow this file.</source>
        <translation>Die Kapitel dieses Dokuments folgen dieser Datei.</translation>
    </message>
    <message>
        <source>The chapters are where the finished file has them.</source>
        <translation>Die Kapitel stehen da, wo die fertige Datei sie hat.</translation>
    </message>
    <message>
        <source>Not found, unticked at their old times: %1</source>
        <translation>Nicht gefunden, ohne Häkchen an der alten Zeit: %1</translation>
    </message>
    <message>
        <source>Listening. The show can go on meanwhile.</source>
        <translation>Es wird gehört. Die Sendung kann dabei weitergehen.</translation>
    </message>
</context>
<context>
    <name>ZLFollowing</name>
    <message>
        <source>There is no recorder “%1” to follow.</source>
        <translation>Es gibt keinen Rekorder „%1“, dem Zelta folgen kann.</translation>
    </message>
    <message>
        <source>“%1” follows %2.</source>
        <translation>„%1“ folgt %2.</translation>
    </message>
    <message>
        <source>%1 is not followed any more.</source>
        <translation>Zelta folgt %1 nicht mehr.</translation>
    </message>
    <message>
        <source>%1: no answer</source>
        <translation>%1: keine Antwort</translation>
    </message>
    <message>
        <source>%1: refused</source>
        <translation>%1: abgelehnt</translation>
    </message>
    <message>
        <source>%1: ready</source>
        <translation>%1: bereit</translation>
    </message>
    <message>
        <source>%1: following</source>
        <translation>%1: im Gleichlauf</translation>
    </message>
    <message>
        <source>No recorder is followed.</source>
        <translation>Zelta folgt keinem Rekorder.</translation>
    </message>
    <message>
        <source>%1 does not answer yet.</source>
        <translation>%1 antwortet noch nicht.</translation>
    </message>
    <message>
        <source>%1: lost since %2</source>
        <translation>%1: verloren seit %2</translation>
    </message>
    <message>
        <source>%1 is there. Zelta&apos;s clock starts with it.</source>
        <translation>%1 ist da. Die Uhr von Zelta startet mit der Aufnahme.</translation>
    </message>
    <message>
        <source>Zelta&apos;s clock goes as that of %1.</source>
        <translation>Die Uhr von Zelta geht wie die von %1.</translation>
    </message>
    <message>
        <source>%1 has been lost since %2. Zelta&apos;s clock goes on as it went last.</source>
        <translation>%1 ist seit %2 verloren. Die Uhr von Zelta geht weiter wie zuletzt.</translation>
    </message>
</context>
<context>
    <name>ZLFollowingDisplay</name>
    <message>
        <source>&amp;Recorder…</source>
        <translation>&amp;Rekorder …</translation>
    </message>
</context>
<context>
    <name>ZLFollowingLog</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>Ereignis</translation>
    </message>
</context>
<context>
    <name>ZLGeneralPrefsViewController</name>
    <message>
        <source>Chapters:</source>
        <translation>Kapitel:</translation>
    </message>
    <message>
        <source>Add a chapter when the recording &amp;starts</source>
        <translation>Ein Kapitel setzen, wenn die Aufnahme &amp;startet</translation>
    </message>
    <message>
        <source>Add a chapter when the recording &amp;resumes after a pause</source>
        <translation>Ein Kapitel setzen, wenn die Aufnahme nach einer Pause &amp;weiterläuft</translation>
    </message>
    <message>
        <source>While another program is in front, ask for the &amp;title in a notification</source>
        <translation>Den &amp;Titel in einer Benachrichtigung erfragen, wenn ein anderes Programm vorn ist</translation>
    </message>
    <message>
        <source>Sound:</source>
        <translation>Ton:</translation>
    </message>
    <message>
        <source>&amp;Beep before the recording starts</source>
        <translation>&amp;Piepton vor dem Beginn der Aufnahme</translation>
    </message>
    <message>
        <source>Sound &amp;output:</source>
        <translation>Ton&amp;ausgabe:</translation>
    </message>
    <message>
        <source>Sound output</source>
        <translation>Tonausgabe</translation>
    </message>
    <message>
        <source>&amp;Font size:</source>
        <translation>Schrift&amp;größe:</translation>
    </message>
    <message>
        <source>Font size of the chapter table</source>
        <translation>Schriftgröße der Kapiteltabelle</translation>
    </message>
    <message>
        <source> pt</source>
        <translation> pt</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>No sound output found</source>
        <translation>Keine Tonausgabe gefunden</translation>
    </message>
    <message>
        <source>No sound server found</source>
        <translation>Kein Tonserver gefunden</translation>
    </message>
    <message>
        <source>The desktop&apos;s sound server does not answer, so no beep can be heard.</source>
        <translation>Der Tonserver des Desktops antwortet nicht, deshalb ist kein Piepton zu hören.</translation>
    </message>
</context>
<context>
    <name>ZLGuide</name>
    <message>
        <source>GUIDE.html</source>
        <extracomment>The page of the guide, one for each language.</extracomment>
        <translation>GUIDE.de.html</translation>
    </message>
</context>
<context>
    <name>ZLHeadlessCommands</name>
    <message>
        <source>did nothing: %1</source>
        <translation>nichts getan: %1</translation>
    </message>
    <message>
        <source>paused at %1</source>
        <translation>pausiert bei %1</translation>
    </message>
    <message>
        <source>the clock reads %1</source>
        <translation>die Uhr zeigt %1</translation>
    </message>
    <message>
        <source>no chapter is selected</source>
        <translation>kein Kapitel ist ausgewählt</translation>
    </message>
    <message>
        <source>give the selected chapter the title that follows</source>
        <translation>gibt dem ausgewählten Kapitel den Titel, der folgt</translation>
    </message>
    <message>
        <source>tell the document, the clock and whether everything is saved</source>
        <translation>nennt das Dokument, die Uhr und ob alles gespeichert ist</translation>
    </message>
    <message>
        <source>list the commands</source>
        <translation>zählt die Befehle auf</translation>
    </message>
    <message>
        <source>save and end; refused while the clock runs</source>
        <translation>speichert und endet; nicht, solange die Uhr läuft</translation>
    </message>
</context>
<context>
    <name>ZLHeadlessConcerns</name>
    <message>
        <source>%1 Nothing is written there until you decide in a window.</source>
        <translation>%1 Dort wird nichts geschrieben, bis Sie in einem Fenster entscheiden.</translation>
    </message>
    <message>
        <source>Saved again: %1</source>
        <translation>Wieder gespeichert: %1</translation>
    </message>
    <message>
        <source>The recovery folder can be written again.</source>
        <translation>In den Wiederherstellungsordner kann wieder geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>ZLHeadlessListening</name>
    <message>
        <source>listening along: %1</source>
        <translation>mitgehört wird: %1</translation>
    </message>
</context>
<context>
    <name>ZLHeadlessRecorder</name>
    <message>
        <source>Commands come from standard input, one a line; &quot;help&quot; lists them.</source>
        <translation>Befehle kommen von der Standardeingabe, einer je Zeile; „help“ zählt sie auf.</translation>
    </message>
    <message>
        <source>Unknown command &quot;%1&quot;; &quot;help&quot; lists the commands.</source>
        <translation>Unbekannter Befehl „%1“; „help“ zählt die Befehle auf.</translation>
    </message>
    <message>
        <source>Cannot save: %1</source>
        <translation>Speichern nicht möglich: %1</translation>
    </message>
    <message>
        <source>The clock is running: toggleRecording first, then quit.</source>
        <translation>Die Uhr läuft: erst toggleRecording, dann quit.</translation>
    </message>
    <message>
        <source>new document: %1</source>
        <translation>neues Dokument: %1</translation>
    </message>
</context>
<context>
    <name>ZLHeadlessReport</name>
    <message>
        <source>recording from %1</source>
        <translation>Aufnahme ab %1</translation>
    </message>
    <message>
        <source>paused at %1</source>
        <translation>pausiert bei %1</translation>
    </message>
    <message>
        <source>selected %1</source>
        <translation>ausgewählt: %1</translation>
    </message>
    <message>
        <source>deleted %1</source>
        <translation>gelöscht: %1</translation>
    </message>
    <message>
        <source>file: %1, %2</source>
        <translation>Datei: %1, %2</translation>
    </message>
    <message>
        <source>document: %1 (not in a file yet, kept safe)</source>
        <translation>Dokument: %1 (noch ohne Datei, sicher aufbewahrt)</translation>
    </message>
    <message>
        <source>document: %1</source>
        <translation>Dokument: %1</translation>
    </message>
    <message>
        <source>clock: recording, %1</source>
        <translation>Uhr: Aufnahme, %1</translation>
    </message>
    <message>
        <source>clock: paused, %1</source>
        <translation>Uhr: pausiert, %1</translation>
    </message>
    <message>
        <source>chapters: %1</source>
        <translation>Kapitel: %1</translation>
    </message>
    <message>
        <source>selected: %1</source>
        <translation>ausgewählt: %1</translation>
    </message>
    <message>
        <source>file: %1</source>
        <translation>Datei: %1</translation>
    </message>
    <message>
        <source>also open: %1, %2</source>
        <translation>außerdem offen: %1, %2</translation>
    </message>
    <message>
        <source>OSC: UDP port %1</source>
        <translation>OSC: UDP-Port %1</translation>
    </message>
    <message>
        <source>OSC: %1</source>
        <translation>OSC: %1</translation>
    </message>
</context>
<context>
    <name>ZLHeadlessTexts</name>
    <message>
        <source>saved</source>
        <translation>gespeichert</translation>
    </message>
    <message>
        <source>saving</source>
        <translation>wird gespeichert</translation>
    </message>
    <message>
        <source>not saved: %1</source>
        <translation>nicht gespeichert: %1</translation>
    </message>
    <message>
        <source>chapter %1 at %2 &quot;%3&quot;</source>
        <translation>Kapitel %1 bei %2 „%3“</translation>
    </message>
</context>
<context>
    <name>ZLHeardSound</name>
    <message>
        <source>%1: There is nothing to be heard in it.</source>
        <translation>%1: Darin ist nichts zu hören.</translation>
    </message>
    <message>
        <source>The document has nothing of listening along.</source>
        <translation>In dem Dokument ist nichts vom Mithören.</translation>
    </message>
</context>
<context>
    <name>ZLHelpMenu</name>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Zelta &amp;Guide</source>
        <translation>Zelta-&amp;Handbuch</translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts</source>
        <translation>&amp;Tastenkürzel</translation>
    </message>
    <message>
        <source>&amp;About Zelta</source>
        <translation>Ü&amp;ber Zelta</translation>
    </message>
    <message>
        <source>The guide is not installed.</source>
        <translation>Das Handbuch ist nicht installiert.</translation>
    </message>
    <message>
        <source>No program opens the guide. It is in %1.</source>
        <translation>Kein Programm öffnet das Handbuch. Es liegt in %1.</translation>
    </message>
</context>
<context>
    <name>ZLHindenburgExporter</name>
    <message>
        <source>The markers of this session have no end.</source>
        <translation>Die Marker dieser Session haben kein Ende.</translation>
    </message>
    <message>
        <source>The session&apos;s highest marker number leaves no room.</source>
        <translation>Die höchste Markernummer der Session lässt keinen Platz.</translation>
    </message>
    <message>
        <source>The rewritten session would become too large.</source>
        <translation>Die neu geschriebene Session würde zu groß.</translation>
    </message>
    <message>
        <source>HALP!</source>
        <translation>HILFE!</translation>
    </message>
    <message>
        <source>I couldn&apos;t find the Sessions tag. Please provide a well formatted Hindenburg File!</source>
        <translation>Das Sessions-Tag war nicht zu finden. Bitte eine wohlgeformte Hindenburg-Datei wählen!</translation>
    </message>
    <message>
        <source>The session has no &lt;/Session&gt;.</source>
        <translation>Die Session hat kein &lt;/Session&gt;.</translation>
    </message>
    <message>
        <source>There are no enabled chapters.</source>
        <translation>Es gibt keine aktiven Kapitel.</translation>
    </message>
</context>
<context>
    <name>ZLHindenburgSession</name>
    <message>
        <source>Markers of another type were left out: %1.</source>
        <translation>Marken anderer Art wurden ausgelassen: %1.</translation>
    </message>
</context>
<context>
    <name>ZLHotKeyCenter</name>
    <message>
        <source>Keyboards of this system have no such key.</source>
        <translation>Tastaturen dieses Systems haben keine solche Taste.</translation>
    </message>
    <message>
        <source>Another shortcut of this program has the same keys.</source>
        <translation>Ein anderes Kürzel dieses Programms hat dieselben Tasten.</translation>
    </message>
</context>
<context>
    <name>ZLID3Tag</name>
    <message>
        <source>The tag at the beginning is larger than %1 MiB.</source>
        <translation>Das Tag am Anfang ist größer als %1 MiB.</translation>
    </message>
    <message>
        <source>The file ends inside the tag at its beginning.</source>
        <translation>Die Datei endet in dem Tag an ihrem Anfang.</translation>
    </message>
    <message>
        <source>The tag at the beginning has too many entries.</source>
        <translation>Das Tag am Anfang hat zu viele Einträge.</translation>
    </message>
    <message>
        <source>The tag would become larger than %1 MiB.</source>
        <translation>Das Tag würde größer als %1 MiB.</translation>
    </message>
</context>
<context>
    <name>ZLImportCommand</name>
    <message>
        <source>There are %1 shows in it, choose one with --item: %2.</source>
        <translation>Darin sind %1 Sendungen, --item wählt eine aus: %2.</translation>
    </message>
    <message>
        <source>There is no show %1 in it: %2.</source>
        <translation>Eine Sendung %1 ist nicht darin: %2.</translation>
    </message>
    <message>
        <source>%1 is there already; --add adds the chapters to it.</source>
        <translation>%1 gibt es schon; --add fügt die Kapitel dort hinzu.</translation>
    </message>
    <message>
        <source>%1: a document cannot be added to itself.</source>
        <translation>%1: Ein Dokument kann nicht zu sich selbst hinzugefügt werden.</translation>
    </message>
    <message>
        <source>Chapters read as %2: %1.</source>
        <translation>Als %2 gelesene Kapitel: %1.</translation>
    </message>
</context>
<context>
    <name>ZLImportDisplay</name>
    <message>
        <source>Import Chapters</source>
        <translation>Kapitel importieren</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>the text</source>
        <translation>dem Text</translation>
    </message>
    <message>
        <source>The clipboard holds no text.</source>
        <translation>Die Zwischenablage enthält keinen Text.</translation>
    </message>
    <message>
        <source>One list is imported at a time.</source>
        <translation>Es wird jeweils nur eine Liste importiert.</translation>
    </message>
    <message>
        <source>1 chapter imported</source>
        <translation>1 Kapitel importiert</translation>
    </message>
    <message>
        <source>%1 chapters imported</source>
        <translation>%1 Kapitel importiert</translation>
    </message>
    <message>
        <source>Reading “%1”…</source>
        <translation>„%1“ wird gelesen …</translation>
    </message>
    <message>
        <source>1 template imported</source>
        <translation>1 Vorlage importiert</translation>
    </message>
    <message>
        <source>%1 templates imported</source>
        <translation>%1 Vorlagen importiert</translation>
    </message>
</context>
<context>
    <name>ZLImportNews</name>
    <message>
        <source>1 template imported</source>
        <translation>1 Vorlage importiert</translation>
    </message>
    <message>
        <source>%1 templates imported</source>
        <translation>%1 Vorlagen importiert</translation>
    </message>
    <message>
        <source>No line begins with “- ”</source>
        <translation>Keine Zeile beginnt mit „- “</translation>
    </message>
    <message>
        <source>Import the Line</source>
        <translation>Die Zeile importieren</translation>
    </message>
    <message>
        <source>Import the %1 Lines</source>
        <translation>Die %1 Zeilen importieren</translation>
    </message>
</context>
<context>
    <name>ZLImportPlan</name>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
</context>
<context>
    <name>ZLImportRowsModel</name>
    <message>
        <source>Will be disabled</source>
        <translation>Wird nicht aktiv sein</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Link</translation>
    </message>
</context>
<context>
    <name>ZLImportSheet</name>
    <message>
        <source>Import Chapters</source>
        <translation>Kapitel importieren</translation>
    </message>
    <message>
        <source>What was not understood</source>
        <translation>Was nicht verstanden wurde</translation>
    </message>
    <message>
        <source>Chapters that will come</source>
        <translation>Kapitel, die kommen werden</translation>
    </message>
    <message>
        <source>Show:</source>
        <translation>Sendung:</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Sendung</translation>
    </message>
    <message>
        <source>Shift in seconds</source>
        <translation>Verschiebung in Sekunden</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Add to the chapters</source>
        <translation>Zu den Kapiteln hinzufügen</translation>
    </message>
    <message>
        <source>Replace the chapters</source>
        <translation>Die Kapitel ersetzen</translation>
    </message>
    <message>
        <source>Shift (s):</source>
        <translation>Verschieben (s):</translation>
    </message>
    <message>
        <source>Lines without a time become templates</source>
        <translation>Zeilen ohne Zeit werden zu Vorlagen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>1 chapter</source>
        <translation>1 Kapitel</translation>
    </message>
    <message>
        <source>%1 chapters</source>
        <translation>%1 Kapitel</translation>
    </message>
    <message>
        <source>%1 from %2, read as %3</source>
        <translation>%1 aus %2, gelesen als %3</translation>
    </message>
</context>
<context>
    <name>ZLInsertChapterDialog</name>
    <message>
        <source>Insert Chapter</source>
        <translation>Kapitel einfügen</translation>
    </message>
    <message>
        <source>&amp;Time of the new chapter:</source>
        <translation>&amp;Zeit des neuen Kapitels:</translation>
    </message>
    <message>
        <source>Time of the new chapter</source>
        <translation>Zeit des neuen Kapitels</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Einfg</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>ZLJSONValues</name>
    <message>
        <source>Chapter %1 has no time and was left out.</source>
        <translation>Kapitel %1 hat keine Zeit und wurde ausgelassen.</translation>
    </message>
</context>
<context>
    <name>ZLJackRecorder</name>
    <message>
        <source>Waiting for a JACK server.</source>
        <translation>Warte auf einen JACK-Server.</translation>
    </message>
    <message>
        <source>The JACK server has gone.</source>
        <translation>Der JACK-Server ist nicht mehr da.</translation>
    </message>
    <message>
        <source>No JACK server is running.</source>
        <translation>Es läuft kein JACK-Server.</translation>
    </message>
</context>
<context>
    <name>ZLJournalReader</name>
    <message>
        <source>This is not a journal of a document.</source>
        <translation>Das ist kein Journal eines Dokuments.</translation>
    </message>
</context>
<context>
    <name>ZLKeyboardLayout</name>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>F17</source>
        <translation>F17</translation>
    </message>
    <message>
        <source>Num .</source>
        <translation>Num .</translation>
    </message>
    <message>
        <source>Num *</source>
        <translation>Num *</translation>
    </message>
    <message>
        <source>Num +</source>
        <translation>Num +</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Num-Taste</translation>
    </message>
    <message>
        <source>Volume Up</source>
        <translation>Lauter</translation>
    </message>
    <message>
        <source>Volume Down</source>
        <translation>Leiser</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>Num /</source>
        <translation>Num /</translation>
    </message>
    <message>
        <source>Num Enter</source>
        <translation>Num Enter</translation>
    </message>
    <message>
        <source>Num -</source>
        <translation>Num -</translation>
    </message>
    <message>
        <source>F18</source>
        <translation>F18</translation>
    </message>
    <message>
        <source>F19</source>
        <translation>F19</translation>
    </message>
    <message>
        <source>Num =</source>
        <translation>Num =</translation>
    </message>
    <message>
        <source>Num 0</source>
        <translation>Num 0</translation>
    </message>
    <message>
        <source>Num 1</source>
        <translation>Num 1</translation>
    </message>
    <message>
        <source>Num 2</source>
        <translation>Num 2</translation>
    </message>
    <message>
        <source>Num 3</source>
        <translation>Num 3</translation>
    </message>
    <message>
        <source>Num 4</source>
        <translation>Num 4</translation>
    </message>
    <message>
        <source>Num 5</source>
        <translation>Num 5</translation>
    </message>
    <message>
        <source>Num 6</source>
        <translation>Num 6</translation>
    </message>
    <message>
        <source>Num 7</source>
        <translation>Num 7</translation>
    </message>
    <message>
        <source>F20</source>
        <translation>F20</translation>
    </message>
    <message>
        <source>Num 8</source>
        <translation>Num 8</translation>
    </message>
    <message>
        <source>Num 9</source>
        <translation>Num 9</translation>
    </message>
    <message>
        <source>Num ,</source>
        <translation>Num ,</translation>
    </message>
    <message>
        <source>F5</source>
        <translation>F5</translation>
    </message>
    <message>
        <source>F6</source>
        <translation>F6</translation>
    </message>
    <message>
        <source>F7</source>
        <translation>F7</translation>
    </message>
    <message>
        <source>F3</source>
        <translation>F3</translation>
    </message>
    <message>
        <source>F8</source>
        <translation>F8</translation>
    </message>
    <message>
        <source>F9</source>
        <translation>F9</translation>
    </message>
    <message>
        <source>F11</source>
        <translation>F11</translation>
    </message>
    <message>
        <source>F13</source>
        <translation>F13</translation>
    </message>
    <message>
        <source>F16</source>
        <translation>F16</translation>
    </message>
    <message>
        <source>F14</source>
        <translation>F14</translation>
    </message>
    <message>
        <source>F10</source>
        <translation>F10</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>F12</source>
        <translation>F12</translation>
    </message>
    <message>
        <source>F15</source>
        <translation>F15</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Einfg</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Pos1</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Bild auf</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>F4</source>
        <translation>F4</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>F2</source>
        <translation>F2</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Bild ab</translation>
    </message>
    <message>
        <source>F1</source>
        <translation>F1</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Oben</translation>
    </message>
</context>
<context>
    <name>ZLKeyedUnarchiver</name>
    <message>
        <source>The property list is not a keyed archive.</source>
        <translation>Die Eigenschaftsliste ist kein Archiv mit Schlüsseln.</translation>
    </message>
    <message>
        <source>The archive is damaged.</source>
        <translation>Das Archiv ist beschädigt.</translation>
    </message>
    <message>
        <source>The objects of the archive overlap.</source>
        <translation>Die Objekte des Archivs überlappen sich.</translation>
    </message>
    <message>
        <source>The archive has no root object.</source>
        <translation>Das Archiv hat kein Wurzelobjekt.</translation>
    </message>
    <message>
        <source>The archive contains itself.</source>
        <translation>Das Archiv enthält sich selbst.</translation>
    </message>
    <message>
        <source>The archive is nested too deeply.</source>
        <translation>Das Archiv ist zu tief verschachtelt.</translation>
    </message>
    <message>
        <source>The archive unfolds into too much.</source>
        <translation>Das Archiv entfaltet sich zu zu viel.</translation>
    </message>
    <message>
        <source>A dictionary of the archive has a key that is not text.</source>
        <translation>Ein Verzeichnis des Archivs hat einen Schlüssel, der kein Text ist.</translation>
    </message>
</context>
<context>
    <name>ZLLinePatternView</name>
    <message>
        <source>{time}, {title}, {link} and {number} stand for those of the chapter.</source>
        <translation>{time}, {title}, {link} und {number} stehen für Zeit, Titel, Link und Nummer des Kapitels.</translation>
    </message>
    <message>
        <source>L&amp;ine:</source>
        <translation>Ze&amp;ile:</translation>
    </message>
    <message>
        <source>Preview:</source>
        <translation>Vorschau:</translation>
    </message>
</context>
<context>
    <name>ZLListAdvice</name>
    <message>
        <source>No enabled chapters: the file will hold none.</source>
        <translation>Keine aktiven Kapitel: Die Datei wird keine enthalten.</translation>
    </message>
    <message>
        <source>Chapters before the start are left out: see %1.</source>
        <translation>Kapitel vor dem Beginn werden weggelassen: siehe %1.</translation>
    </message>
    <message>
        <source>Players never reach chapters after the end of the recording: see %1.</source>
        <translation>Kapitel nach dem Ende der Aufnahme erreicht kein Player: siehe %1.</translation>
    </message>
    <message>
        <source>Players show one of two chapters with the same time: %1.</source>
        <translation>Von zwei Kapiteln mit derselben Zeit zeigen Player eines: %1.</translation>
    </message>
    <message>
        <source>There is no title in %1.</source>
        <translation>Ein Titel fehlt in %1.</translation>
    </message>
    <message>
        <source>A broken character is written as a replacement sign: there is one in %1.</source>
        <translation>Ein kaputtes Zeichen wird als Ersatzzeichen geschrieben: Eines ist in %1.</translation>
    </message>
    <message>
        <source>Many programs read a CUE sheet only up to 99 minutes: see %1.</source>
        <translation>Viele Programme lesen ein CUE-Sheet nur bis 99 Minuten: siehe %1.</translation>
    </message>
    <message>
        <source>This format has no links: the link is left out in %1.</source>
        <translation>Dieses Format kennt keine Links: Der Link wird weggelassen in %1.</translation>
    </message>
    <message>
        <source>A line break becomes a blank: there is one in %1.</source>
        <translation>Ein Zeilenumbruch wird zum Leerzeichen: Einer ist in %1.</translation>
    </message>
    <message>
        <source>A control character becomes a blank: there is one in %1.</source>
        <translation>Ein Steuerzeichen wird zum Leerzeichen: Eines ist in %1.</translation>
    </message>
    <message>
        <source>Chapter readers misread &lt; and &gt; as a link: there is one in the title of %1.</source>
        <translation>Programme lesen &lt; und &gt; als Link: Eines davon ist im Titel von %1.</translation>
    </message>
    <message>
        <source>A double quote becomes a single one: there is one in %1.</source>
        <translation>Ein doppeltes Anführungszeichen wird zum einfachen: Eines ist in %1.</translation>
    </message>
    <message>
        <source>A sheet holds 99 chapters at most; the others are left out, from %1 on.</source>
        <translation>Ein Sheet fasst höchstens 99 Kapitel; die übrigen werden weggelassen, ab %1.</translation>
    </message>
</context>
<context>
    <name>ZLListForms</name>
    <message>
        <source>This was read as %1. It could also be %2.</source>
        <translation>Dies wurde als %1 gelesen. Es könnte auch %2 sein.</translation>
    </message>
    <message>
        <source>This XML holds no chapters: its outermost element is &lt;%1&gt;.</source>
        <translation>Dieses XML enthält keine Kapitel: Sein äußerstes Element ist &lt;%1&gt;.</translation>
    </message>
    <message>
        <source>No chapters were found: no line has a time, and this is no list that Zelta knows.</source>
        <translation>Es wurden keine Kapitel gefunden: Keine Zeile hat eine Zeit, und dies ist keine Liste, die Zelta kennt.</translation>
    </message>
    <message>
        <source>The list holds more than %1 chapters.</source>
        <translation>Die Liste enthält mehr als %1 Kapitel.</translation>
    </message>
    <message>
        <source>The text is no UTF-8 and was read as Latin-1.</source>
        <translation>Der Text ist kein UTF-8 und wurde als Latin-1 gelesen.</translation>
    </message>
</context>
<context>
    <name>ZLListSource</name>
    <message>
        <source>This is too large to be a list of chapters.</source>
        <translation>Dies ist zu groß für eine Kapitelliste.</translation>
    </message>
    <message>
        <source>This is not a text.</source>
        <translation>Dies ist kein Text.</translation>
    </message>
    <message>
        <source>The JSON is broken after %1 bytes: %2</source>
        <translation>Das JSON ist nach %1 Bytes fehlerhaft: %2</translation>
    </message>
</context>
<context>
    <name>ZLListText</name>
    <message>
        <source>This line was not understood.</source>
        <translation>Diese Zeile wurde nicht verstanden.</translation>
    </message>
    <message>
        <source>Further lines were not understood.</source>
        <translation>Weitere Zeilen wurden nicht verstanden.</translation>
    </message>
    <message>
        <source>“%1” was not understood.</source>
        <translation>„%1“ wurde nicht verstanden.</translation>
    </message>
</context>
<context>
    <name>ZLListening</name>
    <message>
        <source>the default input</source>
        <translation>der Standardeingang</translation>
    </message>
</context>
<context>
    <name>ZLListeningDisplay</name>
    <message>
        <source>Remove Listening Data</source>
        <translation>Gehörtes entfernen</translation>
    </message>
    <message>
        <source>Listen along? While the clock runs, Zelta then keeps how the show sounds, so that the marks can be found in the finished file. No sound is kept: only 32 bits every 20 ms, which cannot be played back as sound. They are in the document, and can be removed again.</source>
        <translation>Mithören? Solange die Uhr läuft, bewahrt Zelta dann auf, wie die Sendung klingt, damit sich die Kapitel in der fertigen Datei wiederfinden lassen. Ton wird nicht aufbewahrt: nur 32 Bit alle 20 ms, die sich nicht als Ton abspielen lassen. Sie stehen im Dokument und lassen sich wieder entfernen.</translation>
    </message>
    <message>
        <source>Listen Along</source>
        <translation>Mithören</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>No input</source>
        <translation>Kein Eingang</translation>
    </message>
    <message>
        <source>Silence</source>
        <translation>Stille</translation>
    </message>
    <message>
        <source>Listening</source>
        <translation>Hört mit</translation>
    </message>
    <message>
        <source>Nothing is heard from “%1”.</source>
        <translation>Von „%1“ ist nichts zu hören.</translation>
    </message>
    <message>
        <source>Zelta listens along to “%1” while the clock runs.</source>
        <translation>Zelta hört „%1“ mit, solange die Uhr läuft.</translation>
    </message>
</context>
<context>
    <name>ZLListeningMenu</name>
    <message>
        <source>&amp;Listen Along to the Show</source>
        <translation>Sendung &amp;mithören</translation>
    </message>
    <message>
        <source>Keep how the show sounds, so that its marks can be found in the finished file.</source>
        <translation>Aufbewahren, wie die Sendung klingt, damit sich ihre Kapitel in der fertigen Datei wiederfinden lassen.</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Eingang</translation>
    </message>
    <message>
        <source>Default Input of the System</source>
        <translation>Standardeingang des Systems</translation>
    </message>
    <message>
        <source>%1 (missing)</source>
        <translation>%1 (fehlt)</translation>
    </message>
    <message>
        <source>Listen &amp;Along</source>
        <translation>&amp;Mithören</translation>
    </message>
</context>
<context>
    <name>ZLMP3Format</name>
    <message>
        <source>The ID3v2.2 tag becomes an ID3v2.3 tag, since the old one cannot hold chapters.</source>
        <translation>Aus dem ID3v2.2-Tag wird ein ID3v2.3-Tag, weil das alte keine Kapitel fassen kann.</translation>
    </message>
    <message>
        <source>Entries of the ID3v2.2 tag that are lost, since an ID3v2.3 tag has no place for them: %1.</source>
        <translation>Einträge des ID3v2.2-Tags, die verloren gehen, weil ein ID3v2.3-Tag keinen Platz für sie hat: %1.</translation>
    </message>
    <message>
        <source>There is no MP3 sound in this file.</source>
        <translation>In dieser Datei ist kein MP3-Ton.</translation>
    </message>
</context>
<context>
    <name>ZLMP4Atoms</name>
    <message>
        <source>The part &quot;%1&quot; of this file is damaged, or the file ends early.</source>
        <translation>Der Teil „%1“ dieser Datei ist beschädigt, oder die Datei endet zu früh.</translation>
    </message>
    <message>
        <source>This file has too many parts.</source>
        <translation>Diese Datei hat zu viele Teile.</translation>
    </message>
</context>
<context>
    <name>ZLMP4Movie</name>
    <message>
        <source>This file is fragmented, as for streaming. Chapters need an ordinary file, such as &quot;ffmpeg -i IN -c copy OUT&quot; makes of it.</source>
        <translation>Diese Datei ist fragmentiert, wie zum Streamen. Kapitel brauchen eine gewöhnliche Datei, wie sie „ffmpeg -i IN -c copy OUT“ daraus macht.</translation>
    </message>
    <message>
        <source>The description of this file is compressed, which Zelta does not write to.</source>
        <translation>Die Beschreibung dieser Datei ist komprimiert, und in solche Dateien schreibt Zelta nicht.</translation>
    </message>
    <message>
        <source>This file has too many tracks.</source>
        <translation>Diese Datei hat zu viele Spuren.</translation>
    </message>
    <message>
        <source>There is no description of the sound in this file.</source>
        <translation>In dieser Datei fehlt die Beschreibung des Tons.</translation>
    </message>
    <message>
        <source>There is no sound in this file.</source>
        <translation>In dieser Datei ist kein Ton.</translation>
    </message>
</context>
<context>
    <name>ZLMP4Rewriter</name>
    <message>
        <source>It is not clear where the last part of this file ends, so nothing can be put behind it.</source>
        <translation>Es ist nicht klar, wo der letzte Teil dieser Datei endet, deshalb lässt sich nichts dahintersetzen.</translation>
    </message>
</context>
<context>
    <name>ZLMatroskaChapters</name>
    <message>
        <source>Chapters without a time were left out: %1.</source>
        <translation>Kapitel ohne Zeit wurden ausgelassen: %1.</translation>
    </message>
</context>
<context>
    <name>ZLMediaChaptersModel</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Link</translation>
    </message>
</context>
<context>
    <name>ZLMediaFile</name>
    <message>
        <source>this is no audio file that Zelta can read: MP3, M4A or MP4, Ogg Vorbis, Opus, FLAC or WAV.</source>
        <translation>Das ist keine Audiodatei, die Zelta lesen kann: MP3, M4A oder MP4, Ogg Vorbis, Opus, FLAC oder WAV.</translation>
    </message>
</context>
<context>
    <name>ZLMediaSource</name>
    <message>
        <source>Another program has changed the audio file meanwhile.</source>
        <translation>Ein anderes Programm hat die Audiodatei inzwischen geändert.</translation>
    </message>
    <message>
        <source>%1: This is not a regular file.</source>
        <translation>%1: Dies ist keine gewöhnliche Datei.</translation>
    </message>
</context>
<context>
    <name>ZLMessageRow</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Question</source>
        <translation>Frage</translation>
    </message>
</context>
<context>
    <name>ZLMoveChaptersDialog</name>
    <message>
        <source>Move Chapters</source>
        <translation>Kapitel verschieben</translation>
    </message>
    <message>
        <source>Please enter the time in milliseconds (1s = 1000ms)</source>
        <translation>Bitte die Zeit in Millisekunden eingeben (1 s = 1000 ms)</translation>
    </message>
    <message>
        <source>Milliseconds</source>
        <translation>Millisekunden</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>ZLNotificationMessage</name>
    <message>
        <source>Reply</source>
        <translation>Antworten</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
</context>
<context>
    <name>ZLNullHotKeyBackend</name>
    <message>
        <source>This window system has no global shortcuts.</source>
        <translation>Dieses Fenstersystem hat keine globalen Kürzel.</translation>
    </message>
</context>
<context>
    <name>ZLNumberedChapters</name>
    <message>
        <source>chapter %1</source>
        <translation>Kapitel %1</translation>
    </message>
    <message>
        <source>%1 more</source>
        <translation>%1 weitere</translation>
    </message>
    <message>
        <source>chapters %1 and %2</source>
        <translation>Kapitel %1 und %2</translation>
    </message>
</context>
<context>
    <name>ZLNumberedFields</name>
    <message>
        <source>This chapter has no time and was left out.</source>
        <translation>Dieses Kapitel hat keine Zeit und wurde ausgelassen.</translation>
    </message>
</context>
<context>
    <name>ZLOBSConnection</name>
    <message>
        <source>Waiting for OBS Studio at %1.</source>
        <translation>Warte auf OBS Studio bei %1.</translation>
    </message>
    <message>
        <source>What answers at %1 is not OBS Studio.</source>
        <translation>Was bei %1 antwortet, ist nicht OBS Studio.</translation>
    </message>
    <message>
        <source>OBS Studio refuses the password. It is shown in OBS under Tools, WebSocket Server Settings.</source>
        <translation>OBS Studio lehnt das Passwort ab. In OBS steht es unter Werkzeuge, WebSocket-Servereinstellungen.</translation>
    </message>
    <message>
        <source>This OBS Studio speaks another version of its protocol. It has to be OBS 28 or newer.</source>
        <translation>Dieses OBS Studio spricht eine andere Version seines Protokolls. Nötig ist OBS 28 oder neuer.</translation>
    </message>
    <message>
        <source>OBS Studio has thrown Zelta out.</source>
        <translation>OBS Studio hat Zelta hinausgeworfen.</translation>
    </message>
    <message>
        <source>OBS Studio has ended the connection.</source>
        <translation>OBS Studio hat die Verbindung beendet.</translation>
    </message>
    <message>
        <source>OBS Studio does not answer at %1.</source>
        <translation>OBS Studio antwortet bei %1 nicht.</translation>
    </message>
    <message>
        <source>OBS Studio sends more than it should.</source>
        <translation>OBS Studio sendet mehr, als es sollte.</translation>
    </message>
    <message>
        <source>OBS Studio wants a password. It is shown in OBS under Tools, WebSocket Server Settings.</source>
        <translation>OBS Studio verlangt ein Passwort. In OBS steht es unter Werkzeuge, WebSocket-Servereinstellungen.</translation>
    </message>
</context>
<context>
    <name>ZLOBSPanel</name>
    <message>
        <source>&amp;Address:</source>
        <translation>&amp;Adresse:</translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <translation>&amp;Port:</translation>
    </message>
    <message>
        <source>Pass&amp;word:</source>
        <translation>Pass&amp;wort:</translation>
    </message>
    <message>
        <source>In OBS Studio: Tools ▸ WebSocket Server Settings.</source>
        <translation>In OBS Studio: Werkzeuge ▸ WebSocket-Servereinstellungen.</translation>
    </message>
</context>
<context>
    <name>ZLOBSPassword</name>
    <message>
        <source>The password is kept until Zelta ends, since no keyring takes it: %1</source>
        <translation>Das Passwort gilt, bis Zelta endet, denn kein Schlüsselbund nimmt es: %1</translation>
    </message>
</context>
<context>
    <name>ZLOSCAcceptPanel</name>
    <message>
        <source>&amp;This computer only</source>
        <translation>&amp;Nur dieser Computer</translation>
    </message>
    <message>
        <source>&amp;Directly connected networks</source>
        <translation>&amp;Direkt verbundene Netzwerke</translation>
    </message>
    <message>
        <source>192.168.1.20 or 192.168.1.0/24</source>
        <translation>192.168.1.20 oder 192.168.1.0/24</translation>
    </message>
    <message>
        <source>“%1” is in the list already.</source>
        <translation>„%1“ steht schon in der Liste.</translation>
    </message>
    <message>
        <source>Accept Messages From</source>
        <translation>Nachrichten annehmen von</translation>
    </message>
    <message>
        <source>Accepted addresses</source>
        <translation>Erlaubte Adressen</translation>
    </message>
    <message>
        <source>The list is empty: no message is accepted.</source>
        <translation>Die Liste ist leer: Keine Nachricht wird angenommen.</translation>
    </message>
    <message>
        <source>Address or network to accept</source>
        <translation>Adresse oder Netzwerk, das erlaubt ist</translation>
    </message>
    <message>
        <source>“%1” is not an address. Enter an address such as 192.168.1.20, or a network such as 192.168.1.0/24.</source>
        <translation>„%1“ ist keine Adresse. Richtig ist eine Adresse wie 192.168.1.20 oder ein Netzwerk wie 192.168.1.0/24.</translation>
    </message>
    <message>
        <source>Only these &amp;addresses</source>
        <translation>Nur diese &amp;Adressen</translation>
    </message>
</context>
<context>
    <name>ZLOSCCodec</name>
    <message>
        <source>too many elements in a bundle</source>
        <translation>zu viele Elemente in einem Bündel</translation>
    </message>
    <message>
        <source>the size is not a multiple of four</source>
        <translation>die Größe ist kein Vielfaches von vier</translation>
    </message>
    <message>
        <source>bundles are nested too deeply</source>
        <translation>Bündel sind zu tief verschachtelt</translation>
    </message>
    <message>
        <source>a bundle ends before its time</source>
        <translation>ein Bündel endet vor seiner Zeitmarke</translation>
    </message>
    <message>
        <source>the size of a bundle&apos;s element does not fit</source>
        <translation>die Größe eines Elements passt nicht in das Bündel</translation>
    </message>
    <message>
        <source>no proper address</source>
        <translation>keine richtige Adresse</translation>
    </message>
    <message>
        <source>no proper type tags</source>
        <translation>keine richtigen Typkennungen</translation>
    </message>
    <message>
        <source>too many arguments</source>
        <translation>zu viele Argumente</translation>
    </message>
    <message>
        <source>an array is closed that is not open</source>
        <translation>ein Feld wird geschlossen, das nicht offen ist</translation>
    </message>
    <message>
        <source>an argument is unknown or incomplete</source>
        <translation>ein Argument ist unbekannt oder unvollständig</translation>
    </message>
    <message>
        <source>an array is not closed</source>
        <translation>ein Feld ist nicht geschlossen</translation>
    </message>
    <message>
        <source>bytes follow the last argument</source>
        <translation>nach dem letzten Argument folgen Bytes</translation>
    </message>
    <message>
        <source>the message has no proper address or is too large for a datagram</source>
        <translation>die Nachricht hat keine richtige Adresse oder ist zu groß für ein Datagramm</translation>
    </message>
    <message>
        <source>the datagram is too large</source>
        <translation>das Datagramm ist zu groß</translation>
    </message>
</context>
<context>
    <name>ZLOSCConnections</name>
    <message>
        <source>&amp;OSC Connections…</source>
        <translation>&amp;OSC-Verbindungen&#xa0;…</translation>
    </message>
</context>
<context>
    <name>ZLOSCConnectionsWindow</name>
    <message>
        <source>OSC Connections</source>
        <translation>OSC-Verbindungen</translation>
    </message>
</context>
<context>
    <name>ZLOSCEntryEditor</name>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Add: %1</source>
        <translation>Hinzufügen: %1</translation>
    </message>
    <message>
        <source>Remove the selected: %1</source>
        <translation>Auswahl entfernen: %1</translation>
    </message>
</context>
<context>
    <name>ZLOSCInputPanel</name>
    <message>
        <source>Send to This Computer</source>
        <translation>An diesen Computer senden</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>Adresse:</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Port:</translation>
    </message>
    <message>
        <source>Address: %1</source>
        <translation>Adresse: %1</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keiner</translation>
    </message>
    <message>
        <source>Port: %1</source>
        <translation>Port: %1</translation>
    </message>
    <message>
        <source>Preferred port</source>
        <translation>Bevorzugter Port</translation>
    </message>
    <message>
        <source>If this port is taken, one of the next nine is used.</source>
        <translation>Ist dieser Port vergeben, wird einer der nächsten neun benutzt.</translation>
    </message>
    <message>
        <source>Preferred port:</source>
        <translation>Bevorzugter Port:</translation>
    </message>
    <message>
        <source>Port %1 is used instead of the preferred one.</source>
        <translation>Statt des bevorzugten wird Port %1 benutzt.</translation>
    </message>
</context>
<context>
    <name>ZLOSCLog</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>From or To</source>
        <translation>Von oder an</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>in</source>
        <translation>ein</translation>
    </message>
    <message>
        <source>out</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>%1 (%2 times)</source>
        <translation>%1 (%2-mal)</translation>
    </message>
    <message>
        <source>dropped: not from this computer</source>
        <translation>verworfen: nicht von diesem Computer</translation>
    </message>
    <message>
        <source>dropped: not from a directly connected network</source>
        <translation>verworfen: nicht aus einem direkt verbundenen Netzwerk</translation>
    </message>
    <message>
        <source>dropped: not from one of the accepted addresses</source>
        <translation>verworfen: von keiner der erlaubten Adressen</translation>
    </message>
    <message>
        <source>dropped: malformed</source>
        <translation>verworfen: fehlerhaft</translation>
    </message>
    <message>
        <source>dropped older messages: too many at once</source>
        <translation>ältere Nachrichten verworfen: zu viele auf einmal</translation>
    </message>
    <message>
        <source>ignored: unknown address</source>
        <translation>übergangen: unbekannte Adresse</translation>
    </message>
    <message>
        <source>ignored: no value</source>
        <translation>übergangen: kein Wert</translation>
    </message>
    <message>
        <source>ignored: value %1</source>
        <translation>übergangen: Wert %1</translation>
    </message>
    <message>
        <source>sent</source>
        <translation>gesendet</translation>
    </message>
    <message>
        <source>not sent: the host is being looked up</source>
        <translation>nicht gesendet: der Rechner wird gesucht</translation>
    </message>
    <message>
        <source>not sent</source>
        <translation>nicht gesendet</translation>
    </message>
    <message>
        <source>not sent: %1</source>
        <translation>nicht gesendet: %1</translation>
    </message>
</context>
<context>
    <name>ZLOSCLogPanel</name>
    <message>
        <source>Messages</source>
        <translation>Nachrichten</translation>
    </message>
    <message>
        <source>Only &amp;problems</source>
        <translation>Nur &amp;Probleme</translation>
    </message>
    <message>
        <source>Pa&amp;use</source>
        <translation>Pa&amp;use</translation>
    </message>
    <message>
        <source>Show only messages that changed nothing or did not get through.</source>
        <translation>Nur Nachrichten zeigen, die nichts geändert haben oder nicht durchkamen.</translation>
    </message>
    <message>
        <source>Keep the list as it is; what comes meanwhile appears when it goes on.</source>
        <translation>Die Liste lassen, wie sie ist; was inzwischen kommt, erscheint danach.</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy the selected messages, or all when none is selected.</source>
        <translation>Die ausgewählten Nachrichten kopieren, ohne Auswahl alle.</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>Contin&amp;ue</source>
        <translation>&amp;Weiter</translation>
    </message>
    <message>
        <source>No message has failed so far.</source>
        <translation>Bisher ist keine Nachricht gescheitert.</translation>
    </message>
    <message>
        <source>Press a button on the control surface: its message and what became of it appear here.
Nothing appears? Then it does not arrive: compare address and port, and the network.</source>
        <translation>Eine Taste am Bedienpult drücken: Ihre Nachricht und was aus ihr wurde, erscheinen hier.
Nichts erscheint? Dann kommt sie nicht an: Adresse, Port und Netzwerk vergleichen.</translation>
    </message>
</context>
<context>
    <name>ZLOSCLogView</name>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
</context>
<context>
    <name>ZLOSCMessage</name>
    <message>
        <source>blob of %1 bytes</source>
        <translation>Block von %1 Bytes</translation>
    </message>
    <message>
        <source>time tag %1</source>
        <translation>Zeitmarke %1</translation>
    </message>
</context>
<context>
    <name>ZLOSCOutPort</name>
    <message>
        <source>The host or the port is missing.</source>
        <translation>Der Rechner oder der Port fehlt.</translation>
    </message>
</context>
<context>
    <name>ZLOSCOutputsModel</name>
    <message>
        <source>being looked up …</source>
        <translation>wird gesucht …</translation>
    </message>
    <message>
        <source>not reachable: %1</source>
        <translation>nicht erreichbar: %1</translation>
    </message>
    <message>
        <source>ready</source>
        <translation>bereit</translation>
    </message>
    <message>
        <source>ready, at %1</source>
        <translation>bereit, unter %1</translation>
    </message>
    <message>
        <source>“%1” is in the list already.</source>
        <translation>„%1“ steht schon in der Liste.</translation>
    </message>
    <message>
        <source>Host and Port</source>
        <translation>Rechner und Port</translation>
    </message>
    <message>
        <source>Reachability</source>
        <translation>Erreichbarkeit</translation>
    </message>
    <message>
        <source>“%1” is not a host and port. Enter for example 192.168.1.20:9000 or tablet.local:9000.</source>
        <translation>„%1“ ist kein Rechner mit Port. Richtig ist zum Beispiel 192.168.1.20:9000 oder tablet.local:9000.</translation>
    </message>
    <message>
        <source>getting replies</source>
        <translation>bekommt Antworten</translation>
    </message>
</context>
<context>
    <name>ZLOSCOutputsPanel</name>
    <message>
        <source>Outputs</source>
        <translation>Ausgaben</translation>
    </message>
    <message>
        <source>Host and port to send to</source>
        <translation>Rechner und Port, an die gesendet wird</translation>
    </message>
    <message>
        <source>192.168.1.20:9000</source>
        <translation>192.168.1.20:9000</translation>
    </message>
    <message>
        <source>Messages go to the address and port that the command came from.</source>
        <translation>Nachrichten gehen an die Adresse und den Port, von denen der Befehl kam.</translation>
    </message>
    <message>
        <source>&amp;Reply to senders of valid commands for %1 seconds</source>
        <translation>Absendern gültiger Befehle %1 Sekunden lang antw&amp;orten</translation>
    </message>
</context>
<context>
    <name>ZLOSCReceiver</name>
    <message>
        <source>UDP port %1 cannot be used.</source>
        <translation>Der UDP-Port %1 ist nicht benutzbar.</translation>
    </message>
    <message>
        <source>None of the UDP ports from %1 to %2 can be used.</source>
        <translation>Keiner der UDP-Ports von %1 bis %2 ist benutzbar.</translation>
    </message>
</context>
<context>
    <name>ZLOSCServicesPanel</name>
    <message>
        <source>Found on the Network</source>
        <translation>Im Netzwerk gefunden</translation>
    </message>
    <message>
        <source>Add to &amp;Outputs</source>
        <translation>Zu den Aus&amp;gaben</translation>
    </message>
    <message>
        <source>Services found on the network</source>
        <translation>Im Netzwerk gefundene Dienste</translation>
    </message>
</context>
<context>
    <name>ZLOSCTimePanel</name>
    <message>
        <source>Time by OSC</source>
        <translation>Zeit über OSC</translation>
    </message>
    <message>
        <source>Time alone</source>
        <translation>Nur die Zeit</translation>
    </message>
    <message>
        <source>Own addresses</source>
        <translation>Eigene Adressen</translation>
    </message>
    <message>
        <source>P&amp;reset:</source>
        <translation>Vo&amp;rgabe:</translation>
    </message>
    <message>
        <source>&amp;Time:</source>
        <translation>&amp;Zeit:</translation>
    </message>
    <message>
        <source>&amp;Play:</source>
        <translation>&amp;Wiedergabe:</translation>
    </message>
    <message>
        <source>R&amp;ecord:</source>
        <translation>A&amp;ufnahme:</translation>
    </message>
    <message>
        <source>P&amp;ause:</source>
        <translation>P&amp;ause:</translation>
    </message>
    <message>
        <source>not sent</source>
        <translation>wird nicht gesendet</translation>
    </message>
    <message>
        <source>An address such as /time; * stands for any signs, ? for one.</source>
        <translation>Eine Adresse wie /time; * steht für beliebige Zeichen, ? für eines.</translation>
    </message>
    <message>
        <source>The recorder sends to Zelta&apos;s OSC port, which OSC Connections shows.</source>
        <translation>Der Rekorder sendet an den OSC-Port von Zelta, den „OSC-Verbindungen“ zeigt.</translation>
    </message>
</context>
<context>
    <name>ZLOSCTimeRecorder</name>
    <message>
        <source>No time has come by OSC yet.</source>
        <translation>Über OSC kam noch keine Zeit.</translation>
    </message>
    <message>
        <source>No time comes by OSC any more.</source>
        <translation>Über OSC kommt keine Zeit mehr.</translation>
    </message>
</context>
<context>
    <name>ZLOggFormat</name>
    <message>
        <source>The tags of this file are damaged.</source>
        <translation>Die Tags dieser Datei sind beschädigt.</translation>
    </message>
    <message>
        <source>This Ogg file is a chain of several streams, which Zelta does not write to.</source>
        <translation>Diese Ogg-Datei ist eine Kette aus mehreren Strömen, und in solche schreibt Zelta nicht.</translation>
    </message>
</context>
<context>
    <name>ZLOggPages</name>
    <message>
        <source>The file ends early or cannot be read.</source>
        <translation>Die Datei endet zu früh oder lässt sich nicht lesen.</translation>
    </message>
    <message>
        <source>The description at the beginning of this Ogg file is damaged.</source>
        <translation>Die Beschreibung am Anfang dieser Ogg-Datei ist beschädigt.</translation>
    </message>
    <message>
        <source>This Ogg file has more than one stream, which Zelta does not write to.</source>
        <translation>Diese Ogg-Datei hat mehr als einen Strom, und in solche schreibt Zelta nicht.</translation>
    </message>
</context>
<context>
    <name>ZLOpeningProblems</name>
    <message>
        <source>Dismiss</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>ZLOutsideNewsDisplay</name>
    <message>
        <source>Chapter %1 at %2, from %3</source>
        <translation>Kapitel %1 bei %2, durch %3</translation>
    </message>
    <message>
        <source>“%1”, from %2, went to “%3” and could do nothing there: %4.</source>
        <translation>„%1“, durch %2, ging an „%3“ und konnte dort nichts tun: %4.</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>ZLOutsideTargetDisplay</name>
    <message>
        <source>Commands From Outside Come Here</source>
        <translation>Befehle von außen hierher</translation>
    </message>
    <message>
        <source>Outside commands stay here</source>
        <translation>Befehle von außen bleiben hier</translation>
    </message>
    <message>
        <source>Outside commands come here</source>
        <translation>Befehle von außen kommen hierher</translation>
    </message>
    <message>
        <source>Commands from outside stay here until this document is closed.</source>
        <translation>Befehle von außen bleiben hier, bis dieses Dokument geschlossen wird.</translation>
    </message>
    <message>
        <source>OSC, zelta send and global shortcuts act on this document.</source>
        <translation>OSC, zelta send und globale Kürzel wirken auf dieses Dokument.</translation>
    </message>
    <message>
        <source>They stay with it until it is closed. Click to let them follow the window in front.</source>
        <translation>Sie bleiben bei ihm, bis es geschlossen wird. Ein Klick lässt sie wieder dem Fenster folgen, das vorn ist.</translation>
    </message>
    <message>
        <source>While another program is in front they go to “%1”. Click to keep them here.</source>
        <translation>Solange ein anderes Programm vorn ist, gehen sie an „%1“. Ein Klick behält sie hier.</translation>
    </message>
    <message>
        <source>While another window of Zelta is in front they go to that. Click to keep them here.</source>
        <translation>Solange ein anderes Fenster von Zelta vorn ist, gehen sie dorthin. Ein Klick behält sie hier.</translation>
    </message>
    <message>
        <source>Commands From &amp;Outside Come Here</source>
        <translation>Befehle von &amp;außen hierher</translation>
    </message>
</context>
<context>
    <name>ZLPieceWriter</name>
    <message>
        <source>The writing was cancelled.</source>
        <translation>Das Schreiben wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The file ends early or cannot be read.</source>
        <translation>Die Datei endet zu früh oder lässt sich nicht lesen.</translation>
    </message>
</context>
<context>
    <name>ZLPodloveChapters</name>
    <message>
        <source>No item of this feed holds chapters.</source>
        <translation>Kein Eintrag dieses Feeds enthält Kapitel.</translation>
    </message>
</context>
<context>
    <name>ZLPortalHotKeyBackend</name>
    <message>
        <source>The desktop portal has ended.</source>
        <translation>Das Portal des Desktops hat sich beendet.</translation>
    </message>
    <message>
        <source>The desktop assigned no keys to this shortcut.</source>
        <translation>Der Desktop hat diesem Kürzel keine Tasten gegeben.</translation>
    </message>
</context>
<context>
    <name>ZLPortalShortcutSession</name>
    <message>
        <source>There is no session bus, so the desktop cannot be asked for shortcuts.</source>
        <translation>Es gibt keinen Sitzungsbus, deshalb kann der Desktop nicht um Kürzel gebeten werden.</translation>
    </message>
    <message>
        <source>There is no desktop portal, so the desktop cannot be asked for shortcuts.</source>
        <translation>Es gibt kein Desktop-Portal, deshalb kann der Desktop nicht um Kürzel gebeten werden.</translation>
    </message>
    <message>
        <source>The desktop has withdrawn the shortcuts.</source>
        <translation>Der Desktop hat die Kürzel zurückgezogen.</translation>
    </message>
    <message>
        <source>The shortcuts were declined in the desktop&apos;s dialog.</source>
        <translation>Die Kürzel wurden im Dialog des Desktops abgelehnt.</translation>
    </message>
    <message>
        <source>The desktop refuses the shortcuts.</source>
        <translation>Der Desktop lehnt die Kürzel ab.</translation>
    </message>
    <message>
        <source>This desktop&apos;s portal has no global shortcuts.</source>
        <translation>Das Portal dieses Desktops hat keine globalen Kürzel.</translation>
    </message>
</context>
<context>
    <name>ZLPreferences</name>
    <message>
        <source>In the desktop&apos;s settings it is %1.</source>
        <translation>In den Einstellungen des Desktops ist es %1.</translation>
    </message>
    <message>
        <source>Preferenc&amp;es…</source>
        <translation>E&amp;instellungen&#xa0;…</translation>
    </message>
    <message>
        <source>%1 A key of the desktop&apos;s own settings can run “%2” instead.</source>
        <translation>%1 Stattdessen kann in den Einstellungen des Desktops eine Taste „%2“ ausführen.</translation>
    </message>
    <message>
        <source>There is no notification server: a small panel asks instead.</source>
        <translation>Kein Benachrichtigungsdienst: Stattdessen fragt ein kleines Feld.</translation>
    </message>
    <message>
        <source>There is no notification server, so nothing asks for a title.</source>
        <translation>Kein Benachrichtigungsdienst, deshalb wird kein Titel erfragt.</translation>
    </message>
    <message>
        <source>What you reply becomes the chapter’s title.</source>
        <translation>Was du antwortest, wird der Titel des Kapitels.</translation>
    </message>
</context>
<context>
    <name>ZLQuickEditWindowController</name>
    <message>
        <source>Chapter Title</source>
        <translation>Kapiteltitel</translation>
    </message>
    <message>
        <source>Time of the chapter</source>
        <translation>Zeit des Kapitels</translation>
    </message>
    <message>
        <source>Chapter title</source>
        <translation>Kapiteltitel</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
</context>
<context>
    <name>ZLReaperMarkers</name>
    <message>
        <source>The times are in beats. Set REAPER&apos;s ruler to minutes and seconds and export the markers again.</source>
        <translation>Die Zeiten sind in Taktschlägen. Stelle das Lineal von REAPER auf Minuten und Sekunden und exportiere die Marken noch einmal.</translation>
    </message>
</context>
<context>
    <name>ZLRecorderChoicePanel</name>
    <message>
        <source>Follow</source>
        <translation>Folgen</translation>
    </message>
    <message>
        <source>O&amp;ff</source>
        <translation>A&amp;us</translation>
    </message>
    <message>
        <source>&amp;Start and stop the recorder with Zelta</source>
        <translation>Den Rekorder mit Zelta &amp;starten und stoppen</translation>
    </message>
    <message>
        <source>A press that starts or stops the clock starts and stops the recorder, where it can be told to.</source>
        <translation>Ein Druck, der die Uhr startet oder stoppt, startet und stoppt auch den Rekorder, wo sich das sagen lässt.</translation>
    </message>
    <message>
        <source>Where the recorder can do that; OBS Studio can from version 30.2 on.</source>
        <translation>Wo der Rekorder das kann; OBS Studio kann es ab Version 30.2.</translation>
    </message>
    <message>
        <source>Followed by “%1”.</source>
        <translation>„%1“ folgt.</translation>
    </message>
    <message>
        <source>The document in front will follow.</source>
        <translation>Das Dokument, das vorn ist, wird folgen.</translation>
    </message>
    <message>
        <source>&amp;Write marks into the recorder&apos;s file</source>
        <translation>Kapitel in die Datei des Rekorders schrei&amp;ben</translation>
    </message>
</context>
<context>
    <name>ZLRecorderFollower</name>
    <message>
        <source>%1 answers.</source>
        <translation>%1 antwortet.</translation>
    </message>
    <message>
        <source>%1 records into %2.</source>
        <translation>%1 nimmt in %2 auf.</translation>
    </message>
    <message>
        <source>An undo started or stopped the clock. It follows again when %1 starts again.</source>
        <translation>Ein Rückgängig hat die Uhr gestartet oder gestoppt. Sie folgt wieder, wenn %1 neu startet.</translation>
    </message>
    <message>
        <source>%1 is back after %2 s.</source>
        <translation>%1 ist nach %2 s wieder da.</translation>
    </message>
    <message>
        <source>Joined %1 at %2.</source>
        <translation>Bei %1 eingestiegen, bei %2.</translation>
    </message>
    <message>
        <source>Started with %1 at %2.</source>
        <translation>Mit %1 gestartet, bei %2.</translation>
    </message>
    <message>
        <source>Stopped with %1 at %2.</source>
        <translation>Mit %1 gestoppt, bei %2.</translation>
    </message>
    <message>
        <source>%1 went away from Zelta&apos;s clock by %2 s at %3.</source>
        <translation>%1 wich bei %3 um %2 s von der Uhr von Zelta ab.</translation>
    </message>
    <message>
        <source>%1 is back and does not record. Zelta&apos;s clock goes on.</source>
        <translation>%1 ist wieder da und nimmt nicht auf. Die Uhr von Zelta geht weiter.</translation>
    </message>
    <message>
        <source>Zelta&apos;s clock runs already. From %1 on it goes as fast as %2.</source>
        <translation>Die Uhr von Zelta läuft schon. Ab %1 geht sie so schnell wie %2.</translation>
    </message>
    <message>
        <source>%1 is lost. Zelta&apos;s clock goes on as it went last.</source>
        <translation>%1 ist verloren. Die Uhr von Zelta geht weiter wie zuletzt.</translation>
    </message>
    <message>
        <source>%1 did not start. Zelta&apos;s clock runs from the press on.</source>
        <translation>%1 ist nicht gestartet. Die Uhr von Zelta läuft ab dem Druck.</translation>
    </message>
</context>
<context>
    <name>ZLRecorderStatePanel</name>
    <message>
        <source>%1 ms</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>State:</source>
        <translation>Zustand:</translation>
    </message>
    <message>
        <source>Position:</source>
        <translation>Position:</translation>
    </message>
    <message>
        <source>Distance:</source>
        <translation>Abstand:</translation>
    </message>
    <message>
        <source>Drift:</source>
        <translation>Drift:</translation>
    </message>
    <message>
        <source>Of all chapters that were marked while a recorder was followed. It can be undone.</source>
        <translation>Für alle Kapitel, die gesetzt wurden, während Zelta einem Rekorder folgte. Lässt sich rückgängig machen.</translation>
    </message>
    <message>
        <source>%1 ppm</source>
        <translation>%1 ppm</translation>
    </message>
    <message>
        <source>By which the recorder is ahead of Zelta&apos;s clock.</source>
        <translation>So weit ist der Rekorder der Uhr von Zelta voraus.</translation>
    </message>
    <message>
        <source>How much faster the recorder&apos;s clock goes than that of this computer.</source>
        <translation>Um so viel schneller geht die Uhr des Rekorders als die dieses Computers.</translation>
    </message>
    <message>
        <source>Take the &amp;Recorder&apos;s Time for All Chapters</source>
        <translation>Zeit des &amp;Rekorders für alle Kapitel</translation>
    </message>
    <message>
        <source>Take &amp;Zelta&apos;s Time for All Chapters</source>
        <translation>Zeit von &amp;Zelta für alle Kapitel</translation>
    </message>
</context>
<context>
    <name>ZLRecorderWindow</name>
    <message>
        <source>Recorder</source>
        <translation>Rekorder</translation>
    </message>
    <message>
        <source>What Happened</source>
        <translation>Was geschah</translation>
    </message>
    <message>
        <source>What happened</source>
        <translation>Was geschah</translation>
    </message>
</context>
<context>
    <name>ZLRecordingMenu</name>
    <message>
        <source>&amp;Recording</source>
        <translation>&amp;Aufnahme</translation>
    </message>
    <message>
        <source>Pause &amp;Recording</source>
        <translation>Aufnahme &amp;pausieren</translation>
    </message>
    <message>
        <source>Start &amp;Recording</source>
        <translation>Aufnahme &amp;starten</translation>
    </message>
    <message>
        <source>&amp;New Chapter</source>
        <translation>&amp;Neues Kapitel</translation>
    </message>
    <message>
        <source>Delete &amp;Last Chapter</source>
        <translation>L&amp;etztes Kapitel löschen</translation>
    </message>
    <message>
        <source>Select &amp;Previous Chapter</source>
        <translation>&amp;Voriges Kapitel auswählen</translation>
    </message>
    <message>
        <source>&amp;Select Next Chapter</source>
        <translation>Nä&amp;chstes Kapitel auswählen</translation>
    </message>
    <message>
        <source>New &amp;Blank Chapter</source>
        <translation>Neues leeres &amp;Kapitel</translation>
    </message>
    <message>
        <source>&amp;Move Chapters…</source>
        <translation>Kapitel verschie&amp;ben&#xa0;…</translation>
    </message>
    <message>
        <source>Edit &amp;Title</source>
        <translation>&amp;Titel bearbeiten</translation>
    </message>
    <message>
        <source>Edit Lin&amp;k</source>
        <translation>L&amp;ink bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Delete Chapter</source>
        <translation>Kapitel lösc&amp;hen</translation>
    </message>
</context>
<context>
    <name>ZLRemoteActions</name>
    <message>
        <source>Start or Pause Recording</source>
        <translation>Aufnahme starten oder pausieren</translation>
    </message>
    <message>
        <source>New Chapter</source>
        <translation>Neues Kapitel</translation>
    </message>
    <message>
        <source>add a chapter at the clock&apos;s reading</source>
        <translation>setzt ein Kapitel beim Stand der Uhr</translation>
    </message>
    <message>
        <source>the clock is not running</source>
        <translation>die Uhr läuft nicht</translation>
    </message>
    <message>
        <source>no chapter is selected</source>
        <translation>kein Kapitel ist ausgewählt</translation>
    </message>
    <message>
        <source>Delete Last Chapter</source>
        <translation>Letztes Kapitel löschen</translation>
    </message>
    <message>
        <source>there are no chapters</source>
        <translation>es gibt keine Kapitel</translation>
    </message>
    <message>
        <source>Select Previous Chapter</source>
        <translation>Voriges Kapitel auswählen</translation>
    </message>
    <message>
        <source>select the chapter before</source>
        <translation>wählt das Kapitel davor aus</translation>
    </message>
    <message>
        <source>there is no chapter before</source>
        <translation>davor ist kein Kapitel</translation>
    </message>
    <message>
        <source>Select Next Chapter</source>
        <translation>Nächstes Kapitel auswählen</translation>
    </message>
    <message>
        <source>select the chapter after</source>
        <translation>wählt das Kapitel danach aus</translation>
    </message>
    <message>
        <source>there is no chapter after</source>
        <translation>danach ist kein Kapitel</translation>
    </message>
    <message>
        <source>start or pause the clock</source>
        <translation>startet die Uhr oder pausiert sie</translation>
    </message>
    <message>
        <source>the clock starts after the beep</source>
        <translation>die Uhr startet nach dem Piepton</translation>
    </message>
    <message>
        <source>Delete Chapter</source>
        <translation>Kapitel löschen</translation>
    </message>
    <message>
        <source>delete the selected chapter</source>
        <translation>löscht das ausgewählte Kapitel</translation>
    </message>
    <message>
        <source>delete the last chapter</source>
        <translation>löscht das letzte Kapitel</translation>
    </message>
</context>
<context>
    <name>ZLRemoteOutcome</name>
    <message>
        <source>did nothing: no document is open</source>
        <translation>nichts getan: kein Dokument ist offen</translation>
    </message>
    <message>
        <source>paused the recording</source>
        <translation>Aufnahme pausiert</translation>
    </message>
    <message>
        <source>started the recording</source>
        <translation>Aufnahme gestartet</translation>
    </message>
    <message>
        <source>added a chapter</source>
        <translation>Kapitel gesetzt</translation>
    </message>
    <message>
        <source>selected chapter %1</source>
        <translation>Kapitel %1 ausgewählt</translation>
    </message>
    <message>
        <source>did nothing: %1</source>
        <translation>nichts getan: %1</translation>
    </message>
    <message>
        <source>played the beep</source>
        <translation>Piepton abgespielt</translation>
    </message>
    <message>
        <source>deleted a chapter</source>
        <translation>Kapitel gelöscht</translation>
    </message>
    <message>
        <source>did nothing in “%1”: %2; “%3” is recording</source>
        <translation>nichts getan in „%1“: %2; „%3“ nimmt auf</translation>
    </message>
</context>
<context>
    <name>ZLRemoteSource</name>
    <message>
        <source>a global shortcut</source>
        <translation>ein globales Kürzel</translation>
    </message>
</context>
<context>
    <name>ZLRemoteStatusDisplay</name>
    <message>
        <source>OSC %1</source>
        <translation>OSC %1</translation>
    </message>
    <message>
        <source>Open Sound Control messages are received on UDP port %1.</source>
        <translation>Open-Sound-Control-Nachrichten werden am UDP-Port %1 empfangen.</translation>
    </message>
    <message>
        <source>OSC off</source>
        <translation>OSC aus</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Global shortcuts off</source>
        <translation>Globale Kürzel aus</translation>
    </message>
    <message>
        <source>Shortcuts work only while Zelta is in front.</source>
        <translation>Kürzel wirken nur, solange Zelta vorn ist.</translation>
    </message>
    <message>
        <source>Global shortcuts refused</source>
        <translation>Globale Kürzel abgelehnt</translation>
    </message>
    <message>
        <source>Global shortcuts on</source>
        <translation>Globale Kürzel an</translation>
    </message>
    <message>
        <source>Shortcuts also work while another program is in front.</source>
        <translation>Kürzel wirken auch, wenn ein anderes Programm vorn ist.</translation>
    </message>
</context>
<context>
    <name>ZLRevertMenu</name>
    <message>
        <source>Revert &amp;To</source>
        <translation>Zu&amp;rück zu</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Today %1</source>
        <translation>Heute %1</translation>
    </message>
    <message>
        <source>Yesterday %1</source>
        <translation>Gestern %1</translation>
    </message>
    <message>
        <source>1 chapter</source>
        <translation>1 Kapitel</translation>
    </message>
    <message>
        <source>%1 chapters</source>
        <translation>%1 Kapitel</translation>
    </message>
    <message>
        <source>No Earlier States Yet</source>
        <translation>Noch keine früheren Stände</translation>
    </message>
    <message>
        <source>Bring back the chapters, the templates and the recorded time of %1. You can undo it.</source>
        <translation>Die Kapitel, Vorlagen und die aufgenommene Zeit von %1 zurückholen. Das lässt sich rückgängig machen.</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Looking for Earlier States…</source>
        <translation>Suche frühere Stände …</translation>
    </message>
</context>
<context>
    <name>ZLReverting</name>
    <message>
        <source>The clock is running. Pause the recording before you revert.</source>
        <translation>Die Uhr läuft. Vor dem Zurücksetzen bitte die Aufnahme pausieren.</translation>
    </message>
</context>
<context>
    <name>ZLSavePanel</name>
    <message>
        <source>Save Chapters As</source>
        <translation>Kapitel speichern unter</translation>
    </message>
    <message>
        <source>Chapter documents (*.%1)</source>
        <translation>Kapiteldokumente (*.%1)</translation>
    </message>
    <message>
        <source>Saved as %1.</source>
        <translation>Gespeichert als %1.</translation>
    </message>
    <message>
        <source>The document could not be saved. %1</source>
        <translation>Das Dokument ließ sich nicht speichern. %1</translation>
    </message>
    <message>
        <source>Save As…</source>
        <translation>Speichern unter&#xa0;…</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>There is a file “%1” already. Replace it?</source>
        <translation>Es gibt schon eine Datei „%1“. Ersetzen?</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Saved. Further changes are saved automatically.</source>
        <translation>Gespeichert. Weitere Änderungen werden automatisch gespeichert.</translation>
    </message>
</context>
<context>
    <name>ZLSavingDisplay</name>
    <message>
        <source>Saving…</source>
        <translation>Speichert&#xa0;…</translation>
    </message>
    <message>
        <source>Not saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Gespeichert</translation>
    </message>
    <message>
        <source>Every change is written to %1. Click to save under another name.</source>
        <translation>Jede Änderung wird in %1 geschrieben. Ein Klick speichert unter anderem Namen.</translation>
    </message>
    <message>
        <source>Not in a file yet, kept safe</source>
        <translation>Noch ohne Datei, sicher aufbewahrt</translation>
    </message>
    <message>
        <source>Empty</source>
        <translation>Leer</translation>
    </message>
    <message>
        <source>This document is not in a file yet. It is kept safe and opens again at the next start. Click to save it to a file.</source>
        <translation>Dieses Dokument hat noch keine Datei. Es wird sicher aufbewahrt und ist beim nächsten Start wieder da. Ein Klick speichert es in eine Datei.</translation>
    </message>
</context>
<context>
    <name>ZLSendCommand</name>
    <message>
        <source>sent to port %1 of this computer</source>
        <translation>an Port %1 dieses Computers gesendet</translation>
    </message>
</context>
<context>
    <name>ZLShortcutField</name>
    <message>
        <source>This key cannot be part of a shortcut.</source>
        <translation>Diese Taste kann nicht Teil eines Kürzels sein.</translation>
    </message>
    <message>
        <source>Unknown key</source>
        <translation>Unbekannte Taste</translation>
    </message>
    <message>
        <source>Press the keys…</source>
        <translation>Tasten drücken&#xa0;…</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keines</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Add Ctrl, Alt or Super, or use a function key.</source>
        <translation>Strg, Alt oder Super dazu halten oder eine Funktionstaste nehmen.</translation>
    </message>
</context>
<context>
    <name>ZLShortcutList</name>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>%1 (refused)</source>
        <translation>%1 (abgelehnt)</translation>
    </message>
    <message>
        <source>Global Shortcuts</source>
        <translation>Globale Kürzel</translation>
    </message>
    <message>
        <source>Global Shortcuts (Off)</source>
        <translation>Globale Kürzel (aus)</translation>
    </message>
</context>
<context>
    <name>ZLShortcutListWindow</name>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>C&amp;hange…</source>
        <translation>&amp;Ändern …</translation>
    </message>
    <message>
        <source>Choose your own keys for the global shortcuts</source>
        <translation>Eigene Tasten für die globalen Kürzel wählen</translation>
    </message>
</context>
<context>
    <name>ZLShortcutPrefsViewController</name>
    <message>
        <source>&amp;Start or Pause Recording:</source>
        <translation>Aufnahme &amp;starten oder pausieren:</translation>
    </message>
    <message>
        <source>&amp;New Chapter:</source>
        <translation>&amp;Neues Kapitel:</translation>
    </message>
    <message>
        <source>Delete &amp;Last Chapter:</source>
        <translation>&amp;Letztes Kapitel löschen:</translation>
    </message>
    <message>
        <source>Select &amp;Previous Chapter:</source>
        <translation>&amp;Voriges Kapitel auswählen:</translation>
    </message>
    <message>
        <source>Select Ne&amp;xt Chapter:</source>
        <translation>Nä&amp;chstes Kapitel auswählen:</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>“%1” has the same keys.</source>
        <translation>„%1“ hat dieselben Tasten.</translation>
    </message>
    <message>
        <source>&amp;Delete Chapter:</source>
        <translation>&amp;Kapitel löschen:</translation>
    </message>
    <message>
        <source>&amp;Global shortcuts: work also while another program is in front</source>
        <translation>&amp;Globale Kürzel: wirken auch, wenn ein anderes Programm vorn ist</translation>
    </message>
    <message>
        <source>With Alt: adds a blank chapter</source>
        <translation>Mit Alt: setzt ein leeres Kapitel</translation>
    </message>
</context>
<context>
    <name>ZLShortcutRecorder</name>
    <message>
        <source>Clear the shortcut</source>
        <translation>Das Kürzel löschen</translation>
    </message>
    <message>
        <source>Clear %1</source>
        <translation>%1 löschen</translation>
    </message>
</context>
<context>
    <name>ZLShowListening</name>
    <message>
        <source>No sound server answers, so nothing is heard.</source>
        <translation>Kein Tonserver antwortet, also ist nichts zu hören.</translation>
    </message>
    <message>
        <source>The input “%1” is missing.</source>
        <translation>Der Eingang „%1“ fehlt.</translation>
    </message>
    <message>
        <source>Nothing has been heard from “%1” for ten seconds.</source>
        <translation>Von „%1“ ist seit zehn Sekunden nichts zu hören.</translation>
    </message>
</context>
<context>
    <name>ZLSilentDisk</name>
    <message>
        <source>The disk does not answer</source>
        <translation>Die Platte antwortet nicht</translation>
    </message>
</context>
<context>
    <name>ZLSleepText</name>
    <message>
        <source>The computer slept for %1 from %2. The clock stood still.</source>
        <translation>Der Computer hat ab %2 für %1 geschlafen. Die Uhr stand still.</translation>
    </message>
    <message>
        <source>The computer slept %1 times, for %2 altogether, first from %3. The clock stood still.</source>
        <translation>Der Computer hat %1-mal geschlafen, zusammen %2, zuerst ab %3. Die Uhr stand still.</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 h %2 min</translation>
    </message>
</context>
<context>
    <name>ZLSndfileReader</name>
    <message>
        <source>The sound cannot be brought to another sample rate.</source>
        <translation>Der Ton lässt sich nicht auf eine andere Abtastrate bringen.</translation>
    </message>
    <message>
        <source>The file ends before that.</source>
        <translation>Die Datei endet vorher.</translation>
    </message>
    <message>
        <source>It claims to have %1 samples a second and %2 channels, which no sound has.</source>
        <translation>Sie gibt %1 Abtastwerte in der Sekunde und %2 Kanäle an, die es bei keinem Ton gibt.</translation>
    </message>
</context>
<context>
    <name>ZLSoundExcerpt</name>
    <message>
        <source>%1: The file ends before that.</source>
        <translation>%1: Die Datei endet vorher.</translation>
    </message>
    <message>
        <source>There is no sound output to play it on.</source>
        <translation>Es gibt keine Tonausgabe, um es abzuspielen.</translation>
    </message>
</context>
<context>
    <name>ZLStatusLine</name>
    <message>
        <source>untitled</source>
        <translation>ohne Titel</translation>
    </message>
    <message>
        <source>No templates</source>
        <translation>Keine Vorlagen</translation>
    </message>
    <message>
        <source>Next: %1</source>
        <translation>Nächstes: %1</translation>
    </message>
    <message>
        <source>The next chapter takes this title. Click to show the templates.</source>
        <translation>Das nächste Kapitel bekommt diesen Titel. Ein Klick zeigt die Vorlagen.</translation>
    </message>
    <message>
        <source>Click to prepare chapters before the recording.</source>
        <translation>Ein Klick, um Kapitel vor der Aufnahme vorzubereiten.</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
</context>
<context>
    <name>ZLTemplatesDrawer</name>
    <message>
        <source>Templates</source>
        <translation>Vorlagen</translation>
    </message>
    <message>
        <source>Add a template below the selected one</source>
        <translation>Eine Vorlage unter der ausgewählten hinzufügen</translation>
    </message>
    <message>
        <source>Add Template</source>
        <translation>Vorlage hinzufügen</translation>
    </message>
    <message>
        <source>+</source>
        <translation>+</translation>
    </message>
    <message>
        <source>Remove the selected template</source>
        <translation>Die ausgewählte Vorlage entfernen</translation>
    </message>
    <message>
        <source>Remove Template</source>
        <translation>Vorlage entfernen</translation>
    </message>
    <message>
        <source>−</source>
        <translation>−</translation>
    </message>
    <message>
        <source>Import templates from an outline: lines that start with &quot;- &quot;</source>
        <translation>Vorlagen aus einer Gliederung importieren: Zeilen, die mit &quot;- &quot; beginnen</translation>
    </message>
    <message>
        <source>Import Templates</source>
        <translation>Vorlagen importieren</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Prepare topics here, or import an outline from the clipboard.</source>
        <translation>Hier Themen vorbereiten oder eine Gliederung aus der Zwischenablage importieren.</translation>
    </message>
    <message>
        <source>Import from Clipboard</source>
        <translation>Aus der Zwischenablage importieren</translation>
    </message>
    <message>
        <source>Edit Title</source>
        <translation>Titel bearbeiten</translation>
    </message>
    <message>
        <source>Edit Link</source>
        <translation>Link bearbeiten</translation>
    </message>
</context>
<context>
    <name>ZLTemplatesTableModel</name>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Link</translation>
    </message>
</context>
<context>
    <name>ZLTimeEntry</name>
    <message>
        <source>HH:MM:SS.mmm</source>
        <translation>HH:MM:SS.mmm</translation>
    </message>
    <message>
        <source>HH:MM:SS.mmm YYYY-MM-DD</source>
        <translation>HH:MM:SS.mmm JJJJ-MM-TT</translation>
    </message>
</context>
<context>
    <name>ZLUnreadableDocument</name>
    <message>
        <source>%1 is not a Zelta document.</source>
        <translation>%1 ist kein Zelta-Dokument.</translation>
    </message>
    <message>
        <source>%1 is damaged, or it is not a Zelta document.</source>
        <translation>%1 ist beschädigt oder kein Zelta-Dokument.</translation>
    </message>
</context>
<context>
    <name>ZLViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>A&amp;nsicht</translation>
    </message>
    <message>
        <source>Show Absolute Time</source>
        <translation>Absolute Zeit zeigen</translation>
    </message>
    <message>
        <source>&amp;Templates</source>
        <translation>&amp;Vorlagen</translation>
    </message>
    <message>
        <source>Go to &amp;Messages</source>
        <translation>Zu den &amp;Meldungen</translation>
    </message>
    <message>
        <source>Show Relative Time</source>
        <translation>Relative Zeit zeigen</translation>
    </message>
</context>
<context>
    <name>ZLVorbisComment</name>
    <message>
        <source>The tags of this file are damaged.</source>
        <translation>Die Tags dieser Datei sind beschädigt.</translation>
    </message>
</context>
<context>
    <name>ZLWaveChunks</name>
    <message>
        <source>This WAV file has too many parts.</source>
        <translation>Diese WAV-Datei hat zu viele Teile.</translation>
    </message>
</context>
<context>
    <name>ZLWaveFormat</name>
    <message>
        <source>There is no sound in this WAV file.</source>
        <translation>In dieser WAV-Datei ist kein Ton.</translation>
    </message>
    <message>
        <source>Notes and regions of the markers that are in the file now are lost.</source>
        <translation>Notizen und Bereiche der Marker, die jetzt in der Datei sind, gehen verloren.</translation>
    </message>
    <message>
        <source>The sizes in this WAV file are not those of its parts, as in a recording that was cut off. Open it in an audio editor and save it once.</source>
        <translation>Die Größen in dieser WAV-Datei sind nicht die ihrer Teile, wie bei einer abgebrochenen Aufnahme. Öffne sie in einem Audioeditor und sichere sie einmal.</translation>
    </message>
    <message>
        <source>The WAV file would become larger than 4 GiB, which its form cannot hold.</source>
        <translation>Die WAV-Datei würde größer als 4 GiB, und das kann ihre Form nicht fassen.</translation>
    </message>
</context>
<context>
    <name>ZLWindowCloser</name>
    <message>
        <source>Save As…</source>
        <translation>Speichern unter&#xa0;…</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close Without Saving</source>
        <translation>Ohne Speichern schließen</translation>
    </message>
    <message>
        <source>“%1” is not in a file yet. Save it before closing?</source>
        <translation>„%1“ hat noch keine Datei. Vor dem Schließen speichern?</translation>
    </message>
    <message>
        <source>The document cannot be saved: %1 Close it anyway?</source>
        <translation>Das Dokument lässt sich nicht speichern: %1 Trotzdem schließen?</translation>
    </message>
</context>
<context>
    <name>ZLWindowMenu</name>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>Mi&amp;nimize</source>
        <translation>Mi&amp;nimieren</translation>
    </message>
    <message>
        <source>Ne&amp;xt Window</source>
        <translation>Nä&amp;chstes Fenster</translation>
    </message>
    <message>
        <source>&amp;Previous Window</source>
        <translation>&amp;Voriges Fenster</translation>
    </message>
    <message>
        <source>%1 (recording)</source>
        <translation>%1 (Aufnahme)</translation>
    </message>
</context>
<context>
    <name>ZLWriteProtection</name>
    <message>
        <source>%1 is in use by Zelta. Choose another name.</source>
        <translation>%1 wird gerade von Zelta benutzt. Bitte einen anderen Namen wählen.</translation>
    </message>
</context>
<context>
    <name>ZLXcbHotKeyBackend</name>
    <message>
        <source>There is no connection to an X server.</source>
        <translation>Es gibt keine Verbindung zu einem X-Server.</translation>
    </message>
    <message>
        <source>This keyboard has no such key.</source>
        <translation>Diese Tastatur hat keine solche Taste.</translation>
    </message>
</context>
<context>
    <name>ZLXcbKeyGrab</name>
    <message>
        <source>The X server refuses these keys (error %1).</source>
        <translation>Der X-Server lehnt diese Tasten ab (Fehler %1).</translation>
    </message>
    <message>
        <source>Another program uses these keys.</source>
        <translation>Ein anderes Programm benutzt diese Tasten.</translation>
    </message>
</context>
<context>
    <name>ZLXmlChapters</name>
    <message>
        <source>It declares entities, which a list of chapters does not need.</source>
        <translation>Es vereinbart Entitäten, die eine Kapitelliste nicht braucht.</translation>
    </message>
    <message>
        <source>The XML is broken in line %1: %2</source>
        <translation>Das XML ist in Zeile %1 fehlerhaft: %2</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>zelta: No X or Wayland display was found. Recording without a window.
</source>
        <translation>zelta: Es wurde kein X- oder Wayland-Display gefunden. Die Aufnahme läuft ohne Fenster.
</translation>
    </message>
    <message>
        <source>No X or Wayland display was found, and without a window Zelta records one file at most.</source>
        <translation>Es wurde kein Display von X oder Wayland gefunden, und ohne Fenster nimmt Zelta höchstens eine Datei auf.</translation>
    </message>
</context>
</TS>
