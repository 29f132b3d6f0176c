<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>BrowserControls</name>
    <message>
        <source>Network</source>
        <translation>Netzwerk</translation>
    </message>
</context>
<context>
    <name>ComputerPanel</name>
    <message numerus="yes">
        <source>%n computers done, %1 left</source>
        <translation>
            <numerusform>%n Computer fertig, %1 übrig</numerusform>
            <numerusform>%n Computer fertig, %1 übrig</numerusform>
        </translation>
    </message>
    <message>
        <source>Click here, or on &quot;Computers That Didn&apos;t Answer...&quot; in the menu, to see what and why</source>
        <translation>Ein Klick hier oder „Computers That Didn&apos;t Answer...“ im Menü zeigt, was und warum</translation>
    </message>
</context>
<context>
    <name>FindProgram</name>
    <message>
        <source>Try &apos;netrove-find --help&apos; for more information.</source>
        <translation>&apos;netrove-find --help&apos; gibt weitere Informationen.</translation>
    </message>
    <message>
        <source>cannot write the output: %1</source>
        <translation>die Ausgabe kann nicht geschrieben werden: %1</translation>
    </message>
</context>
<context>
    <name>FolderProvider</name>
    <message>
        <source>there is no folder %1</source>
        <translation>es gibt keinen Ordner %1</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read</source>
        <translation>%1 kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>%1=%2 has no meaning here</source>
        <translation>%1=%2 hat hier keine Bedeutung</translation>
    </message>
    <message>
        <source>%1: there is no folder %2</source>
        <translation>%1: es gibt keinen Ordner %2</translation>
    </message>
</context>
<context>
    <name>FrameButton</name>
    <message>
        <source>Minimize</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximieren</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>FrameSample</name>
    <message>
        <source>This is how text looks in a window of this skin.</source>
        <translation>So sieht Text in einem Fenster mit diesem Aussehen aus.</translation>
    </message>
</context>
<context>
    <name>HelpText</name>
    <message>
        <source>Usage: netrove-find [OPTION]... PATTERN...
Find files on the local network whose names match a PATTERN.

PATTERNs are separated by blanks or commas and match whole names, without regard
to case. Quote them, so that the shell leaves them alone:
  *  any characters       [a-f]   one character of a list
  ?  one character        [!a-f]  one character not in it
  #  one digit
No asterisks are added: &apos;report&apos; finds only files called &quot;report&quot;, &apos;*report*&apos;
all that have it in their names.</source>
        <translation>Aufruf: netrove-find [OPTION]... MUSTER...
Dateien im lokalen Netzwerk finden, deren Namen zu einem MUSTER passen.

MUSTER werden durch Leerzeichen oder Kommas getrennt und gelten für den ganzen
Namen, ohne Rücksicht auf Groß- und Kleinschreibung. Setzen Sie sie in
Anführungszeichen, damit die Shell sie nicht verändert:
  *  beliebige Zeichen    [a-f]   ein Zeichen einer Liste
  ?  ein Zeichen          [!a-f]  ein Zeichen, das nicht in der Liste steht
  #  eine Ziffer
Sternchen werden nicht ergänzt: &apos;bericht&apos; findet nur Dateien, die &quot;bericht&quot;
heißen, &apos;*bericht*&apos; alle, in deren Namen es vorkommt.</translation>
    </message>
    <message>
        <source>Where to search:
  --from NODE            start at NODE instead of the whole network. NODE is
                           &apos;\\SERVER&apos;, &apos;\\SERVER\SHARE&apos; or a folder below
                           (also as //SERVER/SHARE), the name of a network,
                           or names from the network down, joined by &apos;|&apos;:
                           &apos;Microsoft Windows Network|WORKGROUP&apos;
  --no-recurse           leave the folders of shares alone
  --exclude NAME[:TYPE]  leave out what is called NAME; TYPE is folder (also a
                           share; the default), workstation, workgroup or
                           network. May be given more than once
  --admin-shares         try the hidden shares Admin$ and C$ to Z$ too
  --this-computer        search this computer too
  --logon-file FILE      log on to every computer with the user of FILE, which
                           only you may read and has the lines
                           &quot;username = USER&quot;, &quot;password = PASSWORD&quot; and, if
                           need be, &quot;domain = DOMAIN&quot;; else as a guest</source>
        <translation>Wo gesucht wird:
  --from KNOTEN          bei KNOTEN beginnen statt beim ganzen Netzwerk. KNOTEN
                           ist &apos;\\SERVER&apos;, &apos;\\SERVER\FREIGABE&apos; oder ein Ordner
                           darunter (auch als //SERVER/FREIGABE), der Name
                           eines Netzwerks, oder Namen vom Netzwerk abwärts,
                           durch &apos;|&apos; verbunden:
                           &apos;Microsoft Windows Network|WORKGROUP&apos;
  --no-recurse           die Ordner von Freigaben nicht durchsuchen
  --exclude NAME[:TYP]   auslassen, was NAME heißt; TYP ist folder (auch eine
                           Freigabe; ohne Angabe gilt dies), workstation,
                           workgroup oder network. Darf mehrmals vorkommen
  --admin-shares         auch die versteckten Freigaben Admin$ und C$ bis Z$
                           versuchen
  --this-computer        auch diesen Computer durchsuchen
  --logon-file DATEI     sich an jedem Computer mit dem Benutzer aus DATEI
                           anmelden, die nur Sie lesen dürfen und die diese
                           Zeilen hat: &quot;username = BENUTZER&quot;,
                           &quot;password = PASSWORT&quot; und, wenn nötig,
                           &quot;domain = DOMÄNE&quot;; sonst als Gast</translation>
    </message>
    <message>
        <source>What to print:
  --details              print name, folder, size in bytes, date (as 2020-02-03
                           04:05:06), attributes (R, H, S, A), and for MPEG
                           audio length, bit rate in kbit/s and frequency in
                           Hz; separated by tabs
  --max N                stop after N files
  --log FILE             write what the search looks at to FILE

  -h, --help             print this help
  --version              print the version</source>
        <translation>Was ausgegeben wird:
  --details              Name, Ordner, Größe in Bytes, Datum (wie 2020-02-03
                           04:05:06), Attribute (R, H, S, A) und bei
                           MPEG-Audio Länge, Bitrate in kbit/s und Frequenz in
                           Hz; durch Tabulatoren getrennt
  --max N                nach N Dateien aufhören
  --log DATEI            was die Suche ansieht, in DATEI schreiben

  -h, --help             diese Hilfe ausgeben
  --version              die Version ausgeben</translation>
    </message>
    <message>
        <source>Examples:</source>
        <translation>Beispiele:</translation>
    </message>
    <message>
        <source>One file a line, with its full path, as soon as it is found. A line break in a
name is printed as its code in angle brackets, &lt;0A&gt;, which no name can hold;
with --details a tab too, and on a terminal every control character.

While the search runs, a terminal shows how far it is. Ctrl+C stops it and
prints what was found so far; a second Ctrl+C ends the program at once. Which
computers and shares couldn&apos;t be searched is printed to standard error.

Exit status: 0 if a file was found, 1 if none was, 2 for wrong use or a failure,
128 and the signal&apos;s number if a signal stopped the search.</source>
        <translation>Jede Datei steht mit ihrem vollen Pfad in einer Zeile, sobald sie gefunden ist.
Ein Zeilenumbruch in einem Namen wird als sein Code in spitzen Klammern
ausgegeben, &lt;0A&gt;, wie ihn kein Name enthalten kann; mit --details auch ein
Tabulator und auf einem Terminal jedes Steuerzeichen.

Während der Suche zeigt ein Terminal, wie weit sie ist. Strg+C hält sie an und
gibt aus, was bis dahin gefunden wurde; ein zweites Strg+C beendet das Programm
sofort. Welche Computer und Freigaben nicht durchsucht werden konnten, steht in
der Standardfehlerausgabe.

Exit-Status: 0, wenn eine Datei gefunden wurde, 1, wenn keine, 2 bei falschem
Aufruf oder einem Fehler, 128 und die Nummer des Signals, wenn ein Signal die
Suche angehalten hat.</translation>
    </message>
</context>
<context>
    <name>IniReader</name>
    <message>
        <source>%1, line %2: %3</source>
        <translation>%1, Zeile %2: %3</translation>
    </message>
    <message>
        <source>neither a [section] nor key=value</source>
        <translation>weder ein [Abschnitt] noch Schlüssel=Wert</translation>
    </message>
    <message>
        <source>a section&apos;s name has no closing &quot;]&quot;</source>
        <translation>dem Namen eines Abschnitts fehlt das schließende „]“</translation>
    </message>
    <message>
        <source>key=value before the first [section]</source>
        <translation>Schlüssel=Wert vor dem ersten [Abschnitt]</translation>
    </message>
</context>
<context>
    <name>LogonControls</name>
    <message>
        <source>&amp;Add...</source>
        <translation>&amp;Hinzufügen...</translation>
    </message>
    <message>
        <source>C&amp;hange...</source>
        <translation>Ä&amp;ndern...</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>&amp;Test</source>
        <translation>&amp;Testen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>&amp;Cancel Test</source>
        <translation>Test &amp;abbrechen</translation>
    </message>
    <message>
        <source>Busy</source>
        <translation>Beschäftigt</translation>
    </message>
    <message>
        <source>Stored logons</source>
        <translation>Gespeicherte Anmeldungen</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Computer</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Benutzer</translation>
    </message>
    <message>
        <source>Kept</source>
        <translation>Gespeichert</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Computers for which no logon is stored are asked as a guest.</source>
        <translation>Computer, für die keine Anmeldung gespeichert ist, werden als Gast gefragt.</translation>
    </message>
</context>
<context>
    <name>NotSearched</name>
    <message>
        <source>It answers now: search again.</source>
        <translation>Antwortet jetzt: Suchen Sie noch einmal.</translation>
    </message>
    <message>
        <source>It refused the logon.</source>
        <translation>Die Anmeldung wurde abgelehnt.</translation>
    </message>
    <message>
        <source>It isn&apos;t open to this user.</source>
        <translation>Für diesen Benutzer nicht freigegeben.</translation>
    </message>
    <message>
        <source>%1: the folder %2.</source>
        <translation>%1: der Ordner %2.</translation>
    </message>
    <message>
        <source>It can&apos;t be reached.</source>
        <translation>Nicht erreichbar.</translation>
    </message>
    <message>
        <source>It didn&apos;t answer in time.</source>
        <translation>Keine Antwort in der vorgesehenen Zeit.</translation>
    </message>
    <message>
        <source>It refused the connection: it offers no shares.</source>
        <translation>Die Verbindung wurde abgelehnt: Es gibt dort keine Freigaben.</translation>
    </message>
    <message>
        <source>There is no way to it.</source>
        <translation>Es führt kein Weg dorthin.</translation>
    </message>
    <message>
        <source>Nobody knows its address.</source>
        <translation>Die Adresse ist unbekannt.</translation>
    </message>
    <message>
        <source>It doesn&apos;t speak SMB 2 or 3.</source>
        <translation>Spricht weder SMB 2 noch SMB 3.</translation>
    </message>
    <message>
        <source>It broke off the connection.</source>
        <translation>Die Verbindung ist abgebrochen.</translation>
    </message>
    <message>
        <source>It isn&apos;t there any more.</source>
        <translation>Nicht mehr vorhanden.</translation>
    </message>
    <message>
        <source>%1: nobody; network.ini names no computer there, and has Find=No, which keeps the others out.</source>
        <translation>%1: niemand; network.ini nennt dort keinen Computer und hat Find=No, was die anderen ausschließt.</translation>
    </message>
    <message numerus="yes">
        <source>%1: only the computers that network.ini names (%n); its Find=No keeps the others out.</source>
        <translation>
            <numerusform>%1: nur der Computer, den network.ini nennt (%n); Find=No schließt dort die anderen aus.</numerusform>
            <numerusform>%1: nur die Computer, die network.ini nennt (%n); Find=No schließt dort die anderen aus.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: computers that announce themselves, by WS-Discovery, DNS-SD or NetBIOS; network.ini names none.</source>
        <translation>%1: Computer, die sich melden, über WS-Discovery, DNS-SD oder NetBIOS; network.ini nennt keinen.</translation>
    </message>
    <message numerus="yes">
        <source>%1: computers that announce themselves, by WS-Discovery, DNS-SD or NetBIOS, and those that network.ini names (%n).</source>
        <translation>
            <numerusform>%1: Computer, die sich melden, über WS-Discovery, DNS-SD oder NetBIOS, und der, den network.ini nennt (%n).</numerusform>
            <numerusform>%1: Computer, die sich melden, über WS-Discovery, DNS-SD oder NetBIOS, und die, die network.ini nennt (%n).</numerusform>
        </translation>
    </message>
    <message>
        <source>1 computer</source>
        <translation>1 Computer</translation>
    </message>
    <message numerus="yes">
        <source>%n computers</source>
        <translation>
            <numerusform>%n Computer</numerusform>
            <numerusform>%n Computer</numerusform>
        </translation>
    </message>
    <message>
        <source>1 share</source>
        <translation>1 Freigabe</translation>
    </message>
    <message numerus="yes">
        <source>%n shares</source>
        <translation>
            <numerusform>%n Freigabe</numerusform>
            <numerusform>%n Freigaben</numerusform>
        </translation>
    </message>
    <message>
        <source>No computer found</source>
        <translation>Kein Computer gefunden</translation>
    </message>
    <message>
        <source>%1 not searched</source>
        <translation>%1 nicht durchsucht</translation>
    </message>
    <message>
        <source>%1, %2 not searched</source>
        <translation>%1, %2 nicht durchsucht</translation>
    </message>
    <message>
        <source>A list broke off: the rest isn&apos;t searched.</source>
        <translation>Eine Liste brach ab: Der Rest ist nicht durchsucht.</translation>
    </message>
</context>
<context>
    <name>OpenNetwork</name>
    <message>
        <source>&quot;%1&quot; can&apos;t be a network&apos;s name</source>
        <translation>„%1“ kann kein Netzwerkname sein</translation>
    </message>
    <message>
        <source>there is a network &quot;%1&quot; already</source>
        <translation>es gibt schon ein Netzwerk „%1“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; needs Type=smb or Type=folder</source>
        <translation>„%1“ braucht Type=smb oder Type=folder</translation>
    </message>
    <message>
        <source>&quot;%1&quot; needs Path=</source>
        <translation>„%1“ braucht Path=</translation>
    </message>
    <message>
        <source>Find needs Yes or No</source>
        <translation>Find braucht Yes oder No</translation>
    </message>
    <message>
        <source>%1 isn&apos;t NAME|WORKGROUP|ADDRESS:PORT</source>
        <translation>%1 ist nicht NAME|ARBEITSGRUPPE|ADRESSE:PORT</translation>
    </message>
    <message>
        <source>&quot;%1&quot; isn&apos;t ADDRESS:PORT or [ADDRESS]:PORT, with a port from 1 to 65535</source>
        <translation>„%1“ ist weder ADRESSE:PORT noch [ADRESSE]:PORT mit einem Port von 1 bis 65535</translation>
    </message>
    <message>
        <source>%1 has no meaning here</source>
        <translation>%1 hat hier keine Bedeutung</translation>
    </message>
    <message>
        <source>network.ini names no network</source>
        <translation>network.ini nennt kein Netzwerk</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read</source>
        <translation>%1 kann nicht gelesen werden</translation>
    </message>
</context>
<context>
    <name>OptionControls</name>
    <message>
        <source>The quick brown fox jumps over the lazy dog. 0123456789</source>
        <translation>Franz jagt im komplett verwahrlosten Taxi quer durch Bayern. 0123456789</translation>
    </message>
    <message>
        <source>Excluded network nodes</source>
        <translation>Ausgeschlossene Netzknoten</translation>
    </message>
</context>
<context>
    <name>ProgressLine</name>
    <message numerus="yes">
        <source>%n found</source>
        <translation>
            <numerusform>%n gefunden</numerusform>
            <numerusform>%n gefunden</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RunTimeError</name>
    <message>
        <source>Invalid procedure call or argument</source>
        <translation>Ungültiger Prozeduraufruf oder ungültiges Argument</translation>
    </message>
    <message>
        <source>Overflow</source>
        <translation>Überlauf</translation>
    </message>
    <message>
        <source>Out of memory</source>
        <translation>Nicht genügend Speicher</translation>
    </message>
    <message>
        <source>Subscript out of range</source>
        <translation>Index außerhalb des gültigen Bereichs</translation>
    </message>
    <message>
        <source>Division by zero</source>
        <translation>Division durch null</translation>
    </message>
    <message>
        <source>Type mismatch</source>
        <translation>Unverträgliche Typen</translation>
    </message>
    <message>
        <source>Internal error</source>
        <translation>Interner Fehler</translation>
    </message>
    <message>
        <source>File not found</source>
        <translation>Datei nicht gefunden</translation>
    </message>
    <message>
        <source>Bad file mode</source>
        <translation>Falscher Dateimodus</translation>
    </message>
    <message>
        <source>File already open</source>
        <translation>Datei bereits geöffnet</translation>
    </message>
    <message>
        <source>Device I/O error</source>
        <translation>Ein-/Ausgabefehler des Geräts</translation>
    </message>
    <message>
        <source>File already exists</source>
        <translation>Datei existiert bereits</translation>
    </message>
    <message>
        <source>Disk full</source>
        <translation>Datenträger voll</translation>
    </message>
    <message>
        <source>Too many files</source>
        <translation>Zu viele Dateien</translation>
    </message>
    <message>
        <source>Device unavailable</source>
        <translation>Gerät nicht verfügbar</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Zugriff verweigert</translation>
    </message>
    <message>
        <source>Disk not ready</source>
        <translation>Datenträger nicht bereit</translation>
    </message>
    <message>
        <source>Path/File access error</source>
        <translation>Fehler beim Zugriff auf Pfad oder Datei</translation>
    </message>
    <message>
        <source>Path not found</source>
        <translation>Pfad nicht gefunden</translation>
    </message>
    <message>
        <source>Object variable not set</source>
        <translation>Objektvariable nicht gesetzt</translation>
    </message>
    <message>
        <source>Invalid pattern string</source>
        <translation>Ungültiges Muster</translation>
    </message>
    <message>
        <source>Invalid property value</source>
        <translation>Ungültiger Eigenschaftswert</translation>
    </message>
    <message>
        <source>Component can&apos;t create object</source>
        <translation>Komponente kann das Objekt nicht erzeugen</translation>
    </message>
    <message>
        <source>This key is already associated with an element of this collection</source>
        <translation>Dieser Schlüssel ist bereits einem Element dieser Auflistung zugeordnet</translation>
    </message>
    <message>
        <source>Element not found</source>
        <translation>Element nicht gefunden</translation>
    </message>
    <message>
        <source>Application-defined or object-defined error</source>
        <translation>Anwendungs- oder objektdefinierter Fehler</translation>
    </message>
</context>
<context>
    <name>SettingsFile</name>
    <message>
        <source>Not all settings were loaded. No copy of their file can be made, so it stays as it is.</source>
        <translation>Nicht alle Einstellungen wurden geladen. Die Datei lässt sich nicht kopieren und bleibt deshalb, wie sie ist.</translation>
    </message>
    <message>
        <source>Not all settings were loaded. Their file is kept as %1.</source>
        <translation>Nicht alle Einstellungen wurden geladen. Die Datei ist als %1 aufgehoben.</translation>
    </message>
</context>
<context>
    <name>StartArguments</name>
    <message>
        <source>Usage: netrove [FILE]...
Find files on the local network. Results files (.nrr) that are given are loaded
into the list of results.

  --help     print this help
  --version  print the version

All else is set in the window; its help comes with F1. netrove-find searches
without a window.
</source>
        <translation>Aufruf: netrove [DATEI]...
Dateien im lokalen Netzwerk finden. Angegebene Ergebnisdateien (.nrr) werden in
die Liste der Ergebnisse geladen.

  --help     diese Hilfe ausgeben
  --version  die Version ausgeben

Alles andere stellen Sie im Fenster ein; seine Hilfe öffnet F1. netrove-find
sucht ohne Fenster.
</translation>
    </message>
    <message>
        <source>there is no option &apos;%1&apos;; see &apos;netrove --help&apos;.</source>
        <translation>die Option &apos;%1&apos; gibt es nicht; siehe &apos;netrove --help&apos;.</translation>
    </message>
</context>
<context>
    <name>SystemMenu</name>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Move</source>
        <translation>&amp;Verschieben</translation>
    </message>
    <message>
        <source>&amp;Size</source>
        <translation>&amp;Größe ändern</translation>
    </message>
    <message>
        <source>Mi&amp;nimize</source>
        <translation>Mi&amp;nimieren</translation>
    </message>
    <message>
        <source>Ma&amp;ximize</source>
        <translation>Ma&amp;ximieren</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>System menu</source>
        <translation>Systemmenü</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Title bar</source>
        <translation>Titelleiste</translation>
    </message>
</context>
<context>
    <name>WrongUse</name>
    <message>
        <source>--exclude knows no type &apos;%1&apos; (%2)</source>
        <translation>--exclude kennt den Typ &apos;%1&apos; nicht (%2)</translation>
    </message>
    <message>
        <source>--exclude takes a name, without a path and wildcards, not &apos;%1&apos;</source>
        <translation>--exclude nimmt einen Namen ohne Pfad und Platzhalter, nicht &apos;%1&apos;</translation>
    </message>
    <message>
        <source>--max takes a whole number above 0, not &apos;%1&apos;</source>
        <translation>--max nimmt eine ganze Zahl über 0, nicht &apos;%1&apos;</translation>
    </message>
    <message>
        <source>too many patterns</source>
        <translation>zu viele Muster</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is no valid pattern (&apos;[&apos; without &apos;]&apos;, or a range from high to low)</source>
        <translation>&apos;%1&apos; ist kein gültiges Muster (&apos;[&apos; ohne &apos;]&apos; oder ein Bereich von hoch nach niedrig)</translation>
    </message>
    <message>
        <source>no pattern to search for</source>
        <translation>es fehlt ein Muster, nach dem gesucht werden soll</translation>
    </message>
    <message>
        <source>cannot write to &apos;%1&apos;</source>
        <translation>&apos;%1&apos; kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>--logon-file &apos;%1&apos; can&apos;t be read</source>
        <translation>--logon-file &apos;%1&apos; kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>--logon-file &apos;%1&apos; is open to other users (chmod 600 closes it)</source>
        <translation>--logon-file &apos;%1&apos; steht anderen Benutzern offen (chmod 600 ändert das)</translation>
    </message>
    <message>
        <source>--logon-file &apos;%1&apos; has no line &quot;username = ...&quot;</source>
        <translation>--logon-file &apos;%1&apos; hat keine Zeile &quot;username = ...&quot;</translation>
    </message>
    <message>
        <source>cannot reach &apos;%1&apos;</source>
        <translation>&apos;%1&apos; ist nicht erreichbar</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is no path of a server, share or folder (quote it for the shell: &apos;\\SERVER\SHARE&apos;)</source>
        <translation>&apos;%1&apos; ist kein Pfad eines Servers, einer Freigabe oder eines Ordners (für die Shell in Anführungszeichen setzen: &apos;\\SERVER\FREIGABE&apos;)</translation>
    </message>
    <message>
        <source>no network answers for &apos;%1&apos;</source>
        <translation>kein Netzwerk antwortet für &apos;%1&apos;</translation>
    </message>
    <message>
        <source>there is no &apos;%1&apos; on the network; its first level is %2</source>
        <translation>im Netzwerk gibt es kein &apos;%1&apos;; seine erste Ebene ist %2</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Network Configuration</source>
        <translation>Netzwerkkonfiguration</translation>
    </message>
</context>
<context>
    <name>netrove::ComputerChooser</name>
    <message>
        <source>Searching for computers on the network...</source>
        <translation>Computer im Netz werden gesucht...</translation>
    </message>
    <message>
        <source>Computers of the network</source>
        <translation>Computer des Netzes</translation>
    </message>
    <message>
        <source>1 computer found.</source>
        <translation>1 Computer gefunden.</translation>
    </message>
    <message numerus="yes">
        <source>%n computers found.</source>
        <translation>
            <numerusform>%n Computer gefunden.</numerusform>
            <numerusform>%n Computer gefunden.</numerusform>
        </translation>
    </message>
    <message>
        <source>The network couldn&apos;t be read: %1</source>
        <translation>Das Netz konnte nicht gelesen werden: %1</translation>
    </message>
</context>
<context>
    <name>netrove::StatusBar</name>
    <message>
        <source>Status bar</source>
        <translation>Statusleiste</translation>
    </message>
</context>
<context>
    <name>netrove::frmAbout</name>
    <message>
        <source>Licence: GNU GPL, version 3 or later.</source>
        <translation>Lizenz: GNU GPL, Version 3 oder höher.</translation>
    </message>
    <message>
        <source>Without any warranty.</source>
        <translation>Ohne jede Gewähr.</translation>
    </message>
    <message>
        <source>Built with Qt %1.</source>
        <translation>Erstellt mit Qt %1.</translation>
    </message>
    <message>
        <source>What has changed</source>
        <translation>Was sich geändert hat</translation>
    </message>
    <message>
        <source>Written by the Netrove developers</source>
        <translation>Von den Netrove-Entwicklern</translation>
    </message>
    <message>
        <source>en</source>
        <comment>language of the date</comment>
        <translation>de</translation>
    </message>
    <message>
        <source>MMMM d, yyyy</source>
        <translation>d. MMMM yyyy</translation>
    </message>
    <message>
        <source>- The first release for Linux.</source>
        <translation>- Die erste Fassung für Linux.</translation>
    </message>
    <message>
        <source>- Searches every computer of the network by SMB, over several connections at once, and finds the computers by itself.</source>
        <translation>- Durchsucht jeden Computer des Netzwerks mit SMB, über mehrere Verbindungen zugleich, und findet die Computer von selbst.</translation>
    </message>
    <message>
        <source>- Copies what was found, with a queue.</source>
        <translation>- Kopiert mit einer Warteschlange, was gefunden wurde.</translation>
    </message>
    <message>
        <source>- Saves lists of results and loads them again, also those of older installations.</source>
        <translation>- Speichert Ergebnislisten und lädt sie wieder, auch die älterer Installationen.</translation>
    </message>
    <message>
        <source>- Logs on with stored logons or a Kerberos ticket.</source>
        <translation>- Meldet sich mit gespeicherten Anmeldungen oder einem Kerberos-Ticket an.</translation>
    </message>
    <message>
        <source>- netrove-find is the same search on the console.</source>
        <translation>- netrove-find ist dieselbe Suche auf der Konsole.</translation>
    </message>
</context>
<context>
    <name>netrove::frmLogon</name>
    <message>
        <source>All computers</source>
        <translation>Alle Computer</translation>
    </message>
    <message>
        <source>&amp;Remember in the keyring</source>
        <translation>Im &amp;Schlüsselbund speichern</translation>
    </message>
    <message>
        <source>Change Logon</source>
        <translation>Anmeldung ändern</translation>
    </message>
    <message>
        <source>Add Logon</source>
        <translation>Anmeldung hinzufügen</translation>
    </message>
    <message>
        <source>Name of the computer</source>
        <translation>Name des Computers</translation>
    </message>
    <message>
        <source>user, DOMAIN\user or user@domain</source>
        <translation>name, DOMÄNE\name oder name@domäne</translation>
    </message>
    <message>
        <source>&amp;Computer:</source>
        <translation>&amp;Computer:</translation>
    </message>
    <message>
        <source>&amp;User:</source>
        <translation>&amp;Benutzer:</translation>
    </message>
    <message>
        <source>&amp;Password:</source>
        <translation>&amp;Passwort:</translation>
    </message>
    <message>
        <source>There is no keyring here: the logon is kept until Netrove ends.</source>
        <translation>Hier gibt es keinen Schlüsselbund: Die Anmeldung bleibt erhalten, bis Netrove beendet wird.</translation>
    </message>
    <message>
        <source>as it is</source>
        <translation>unverändert</translation>
    </message>
    <message>
        <source>Type the name of a computer, or choose &quot;%1&quot;.</source>
        <translation>Geben Sie den Namen eines Computers ein oder wählen Sie „%1“.</translation>
    </message>
    <message>
        <source>Type a user: &quot;user&quot;, &quot;DOMAIN\user&quot; or &quot;user@domain&quot;.</source>
        <translation>Geben Sie einen Benutzer ein: „name“, „DOMÄNE\name“ oder „name@domäne“.</translation>
    </message>
</context>
<context>
    <name>netrove::frmLogons</name>
    <message>
        <source>%1: logged on as %2.</source>
        <translation>%1: angemeldet als %2.</translation>
    </message>
    <message>
        <source>%1 refused %2: the password is wrong, or the user isn&apos;t known there.</source>
        <translation>%1 hat %2 abgelehnt: Das Passwort ist falsch, oder der Benutzer ist dort nicht bekannt.</translation>
    </message>
    <message>
        <source>%1 lets %2 in, but doesn&apos;t show its shares.</source>
        <translation>%1 lässt %2 ein, zeigt aber seine Freigaben nicht.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be reached.</source>
        <translation>%1 ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>Network Logon</source>
        <translation>Netzwerkanmeldung</translation>
    </message>
    <message>
        <source>Reading the keyring, which may ask for its password...</source>
        <translation>Der Schlüsselbund wird gelesen und fragt vielleicht nach seinem Passwort...</translation>
    </message>
    <message>
        <source>The keyring stayed locked: what it holds isn&apos;t shown.</source>
        <translation>Der Schlüsselbund blieb gesperrt: Sein Inhalt wird nicht angezeigt.</translation>
    </message>
    <message>
        <source>Keyring</source>
        <translation>Schlüsselbund</translation>
    </message>
    <message>
        <source>This session</source>
        <translation>Diese Sitzung</translation>
    </message>
    <message>
        <source>Refused</source>
        <translation>Abgelehnt</translation>
    </message>
    <message>
        <source>Storing... The keyring may ask for its password.</source>
        <translation>Wird gespeichert... Der Schlüsselbund fragt vielleicht nach seinem Passwort.</translation>
    </message>
    <message>
        <source>Storing...</source>
        <translation>Wird gespeichert...</translation>
    </message>
    <message>
        <source>The keyring didn&apos;t take the logon: it is kept until Netrove ends.</source>
        <translation>Der Schlüsselbund hat die Anmeldung nicht angenommen: Sie bleibt erhalten, bis Netrove beendet wird.</translation>
    </message>
    <message>
        <source>Remove the logon for &quot;%1&quot;?</source>
        <translation>Anmeldung für „%1“ entfernen?</translation>
    </message>
    <message>
        <source>Removing...</source>
        <translation>Wird entfernt...</translation>
    </message>
    <message>
        <source>The keyring stayed locked, and still has the logon for &quot;%1&quot;.</source>
        <translation>Der Schlüsselbund blieb gesperrt und enthält die Anmeldung für „%1“ weiterhin.</translation>
    </message>
    <message>
        <source>Name of the computer to try the logon on:</source>
        <translation>Name des Computers, an dem die Anmeldung getestet werden soll:</translation>
    </message>
    <message>
        <source>%1 isn&apos;t reached over this network.</source>
        <translation>%1 ist über dieses Netzwerk nicht erreichbar.</translation>
    </message>
    <message>
        <source>Logging on to %1 as %2...</source>
        <translation>Anmeldung an %1 als %2...</translation>
    </message>
    <message>
        <source>There is a logon for &quot;%1&quot; already.
Replace it?</source>
        <translation>Für „%1“ gibt es schon eine Anmeldung.
Soll sie ersetzt werden?</translation>
    </message>
</context>
<context>
    <name>netrove::frmPic</name>
    <message>
        <source>Up at the Tarn</source>
        <translation>Oben am Bergsee</translation>
    </message>
    <message>
        <source>The makers, after the release</source>
        <translation>Die Entwickler nach der Veröffentlichung</translation>
    </message>
</context>
<context>
    <name>netrove::frmSilent</name>
    <message>
        <source>Every computer that was asked has answered.</source>
        <translation>Alle gefragten Computer haben geantwortet.</translation>
    </message>
    <message>
        <source>Computers That Didn&apos;t Answer</source>
        <translation>Computer ohne Antwort</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Computer or share</source>
        <translation>Computer oder Freigabe</translation>
    </message>
    <message>
        <source>&amp;Log On...</source>
        <translation>&amp;Anmelden...</translation>
    </message>
    <message>
        <source>&amp;Try Again</source>
        <translation>&amp;Noch einmal fragen</translation>
    </message>
    <message>
        <source>Asks whether they answer now; a search is yours to start</source>
        <translation>Fragt, ob jetzt Antwort kommt; eine Suche beginnt damit nicht</translation>
    </message>
    <message>
        <source>There is still no computer.</source>
        <translation>Es ist immer noch kein Computer da.</translation>
    </message>
    <message>
        <source>1 computer is there now: choose &quot;Set to Network Root&quot;, and search again.</source>
        <translation>Jetzt ist 1 Computer da: Wählen Sie „Set to Network Root“ und suchen Sie noch einmal.</translation>
    </message>
    <message numerus="yes">
        <source>%n computers are there now: choose &quot;Set to Network Root&quot;, and search again.</source>
        <translation>
            <numerusform>Jetzt ist %n Computer da: Wählen Sie „Set to Network Root“ und suchen Sie noch einmal.</numerusform>
            <numerusform>Jetzt sind %n Computer da: Wählen Sie „Set to Network Root“ und suchen Sie noch einmal.</numerusform>
        </translation>
    </message>
    <message>
        <source>It is asked again...</source>
        <translation>Wird noch einmal gefragt...</translation>
    </message>
    <message>
        <source>Looking for computers...</source>
        <translation>Computer werden gesucht...</translation>
    </message>
    <message>
        <source>Are other computers on, and in the same network as this one? Networks for guests often keep computers apart.</source>
        <translation>Sind andere Computer eingeschaltet und im selben Netz wie dieser? Gastnetze halten Computer oft voneinander getrennt.</translation>
    </message>
    <message>
        <source>A computer that doesn&apos;t announce itself can be named in %1, as in the line Computer1=ATTIC. Netrove reads that file at its start.</source>
        <translation>Ein Computer, der sich nicht meldet, kann in %1 genannt werden, etwa mit der Zeile Computer1=ATTIC. Netrove liest diese Datei beim Start.</translation>
    </message>
    <message>
        <source>A firewall on this computer must let in what comes from the UDP ports 3702 and 137.</source>
        <translation>Eine Firewall auf diesem Computer muss einlassen, was von den UDP-Ports 3702 und 137 kommt.</translation>
    </message>
    <message>
        <source>The button &lt;&gt; of the main window takes the name of a computer. Its &quot;Set to Network Root&quot; has the network read anew by the next search.</source>
        <translation>Die Schaltfläche &lt;&gt; im Hauptfenster nimmt den Namen eines Computers entgegen. Nach ihrem „Set to Network Root“ liest die nächste Suche das Netz neu.</translation>
    </message>
    <message>
        <source>This was asked:</source>
        <translation>Gefragt wurde:</translation>
    </message>
    <message>
        <source>This may help:</source>
        <translation>Das kann helfen:</translation>
    </message>
</context>
<context>
    <name>netrove::frmUpdate</name>
    <message>
        <source>News</source>
        <translation>Neuigkeiten</translation>
    </message>
</context>
</TS>
