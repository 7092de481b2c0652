<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>QIODevice</name>
    <message>
        <source>Permission denied</source>
        <translation>Keine Berechtigung</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>Zu viele offene Dateien</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>Datei oder Verzeichnis nicht gefunden</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>Auf dem Gerät ist kein Speicherplatz mehr verfügbar</translation>
    </message>
</context>
<context>
    <name>ktoparam</name>
    <message>
        <source>there is no such parameter.%1</source>
        <translation>diesen Parameter gibt es nicht.%1</translation>
    </message>
    <message>
        <source>not in sub-device %1, but in %2.</source>
        <translation>nicht im Subdevice %1, aber in %2.</translation>
    </message>
    <message>
        <source>in the sub-devices %1; choose one with --sub-device.</source>
        <translation>in den Subdevices %1; wählen Sie eines mit --sub-device.</translation>
    </message>
    <message>
        <source>not defined in the definition file; without --def its value is set unchecked.</source>
        <translation>nicht in der Definitionsdatei definiert; ohne --def wird der Wert ungeprüft gesetzt.</translation>
    </message>
    <message>
        <source>A command is missing. See &quot;ktoparam help&quot;.</source>
        <translation>Es fehlt ein Befehl. Siehe &quot;ktoparam help&quot;.</translation>
    </message>
    <message>
        <source>One of these must follow: %1.%2 See &quot;ktoparam help %3&quot;.</source>
        <translation>Einer von diesen muss folgen: %1.%2 Siehe &quot;ktoparam help %3&quot;.</translation>
    </message>
    <message>
        <source>%1 is missing.</source>
        <translation>%1 fehlt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is one word too many.</source>
        <translation>&quot;%1&quot; ist ein Wort zu viel.</translation>
    </message>
    <message>
        <source>--%1 %2 is missing.</source>
        <translation>--%1 %2 fehlt.</translation>
    </message>
    <message>
        <source>%1 is empty; it must be the name of a file.</source>
        <translation>%1 ist leer; hier muss der Name einer Datei stehen.</translation>
    </message>
    <message>
        <source>%1 See &quot;ktoparam help %2&quot;.</source>
        <translation>%1 Siehe &quot;ktoparam help %2&quot;.</translation>
    </message>
    <message>
        <source>A definition file (root element LumoParamDefinition) is needed here.</source>
        <translation>Hier wird eine Definitionsdatei gebraucht (Wurzelelement LumoParamDefinition).</translation>
    </message>
    <message>
        <source>A value file is needed here.</source>
        <translation>Hier wird eine Wertedatei gebraucht.</translation>
    </message>
    <message>
        <source>the file has no version that a save could keep. Give its root element the version that the applications expect, for example version=&quot;1.0&quot;.</source>
        <translation>die Datei hat keine Version, die beim Speichern erhalten bleiben könnte. Geben Sie ihrem Wurzelelement die Version, die die Anwendungen erwarten, zum Beispiel version=&quot;1.0&quot;.</translation>
    </message>
    <message>
        <source>there is no hardware id &quot;%1&quot;.%2 The file has: %3.</source>
        <translation>die Hardware-ID &quot;%1&quot; gibt es nicht.%2 Die Datei hat: %3.</translation>
    </message>
    <message>
        <source>the file has no hardware id.</source>
        <translation>die Datei hat keine Hardware-ID.</translation>
    </message>
    <message>
        <source>the file has several hardware ids; choose one with --%1: %2.</source>
        <translation>die Datei hat mehrere Hardware-IDs; wählen Sie eine mit --%1: %2.</translation>
    </message>
    <message>
        <source>there is no sub-device %1; there are: %2.</source>
        <translation>das Subdevice %1 gibt es nicht; es gibt: %2.</translation>
    </message>
    <message>
        <source>sub-device %1</source>
        <translation>Subdevice %1</translation>
    </message>
    <message>
        <source>errors %1, warnings %2, infos %3</source>
        <translation>Fehler %1, Warnungen %2, Infos %3</translation>
    </message>
    <message>
        <source>%1 is a definition file; --json is the only option for it.</source>
        <translation>%1 ist eine Definitionsdatei; dafür gibt es nur die Option --json.</translation>
    </message>
    <message>
        <source>Values are checked against definitions; name their file with --def DEF.</source>
        <translation>Werte werden gegen Definitionen geprüft; nennen Sie deren Datei mit --def DEF.</translation>
    </message>
    <message>
        <source>A value or definition file is needed here.</source>
        <translation>Hier wird eine Werte- oder Definitionsdatei gebraucht.</translation>
    </message>
    <message>
        <source>Find what is wrong with values and definitions.</source>
        <translation>Findet, was an Werten und Definitionen falsch ist.</translation>
    </message>
    <message>
        <source>Only this hardware id.</source>
        <translation>Nur diese Hardware-ID.</translation>
    </message>
    <message>
        <source>List what is defined but missing, too, for each hardware id; these are infos.</source>
        <translation>Zeigt für jede Hardware-ID auch, was definiert ist, aber fehlt; dies sind Infos.</translation>
    </message>
    <message>
        <source>NO</source>
        <translation>NR</translation>
    </message>
    <message>
        <source>POSITION</source>
        <translation>POSITION</translation>
    </message>
    <message>
        <source>ADJUSTMENT</source>
        <translation>KORREKTUR</translation>
    </message>
    <message>
        <source>PROBLEM</source>
        <translation>PROBLEM</translation>
    </message>
    <message>
        <source>Nothing is wrong.</source>
        <translation>Es ist nichts falsch.</translation>
    </message>
    <message>
        <source>The table has no points to convert; nothing was written.</source>
        <translation>Die Tabelle hat keine Punkte zum Umwandeln; nichts wurde geschrieben.</translation>
    </message>
    <message>
        <source>The points are in the %1 format already; nothing was written.</source>
        <translation>Die Punkte sind schon im Format %1; nichts wurde geschrieben.</translation>
    </message>
    <message>
        <source>Points converted to the %1 format: %2</source>
        <translation>In das Format %1 umgewandelte Punkte: %2</translation>
    </message>
    <message>
        <source>there are adjustments in both formats, and only those in the format of the first point are read; converting would lose the others.</source>
        <translation>es gibt Korrekturen in beiden Formaten, und nur die im Format des ersten Punktes werden gelesen; beim Umwandeln gingen die anderen verloren.</translation>
    </message>
    <message>
        <source>Points not shown: %1</source>
        <translation>Nicht dargestellte Punkte: %1</translation>
    </message>
    <message>
        <source>A compensation file.</source>
        <translation>Eine Kompensationsdatei.</translation>
    </message>
    <message>
        <source>Tell what is wrong with a table, point by point.</source>
        <translation>Sagt Punkt für Punkt, was an einer Tabelle falsch ist.</translation>
    </message>
    <message>
        <source>Write the points of a table in the current format, or in the old one.</source>
        <translation>Schreibt die Punkte einer Tabelle im aktuellen oder im alten Format.</translation>
    </message>
    <message>
        <source>The formats differ in the name of an element only; the texts of all values stay as they are. A file whose points are in that format already is left alone.</source>
        <translation>Die Formate unterscheiden sich nur im Namen eines Elements; die Texte aller Werte bleiben, wie sie sind. Eine Datei, deren Punkte schon in diesem Format sind, bleibt unberührt.</translation>
    </message>
    <message>
        <source>&quot;current&quot;, unless given, or &quot;old&quot;.</source>
        <translation>&quot;current&quot;, wenn nichts angegeben ist, oder &quot;old&quot;.</translation>
    </message>
    <message>
        <source>Write here, and leave FILE as it is.</source>
        <translation>Schreibt hierhin und lässt FILE, wie es ist.</translation>
    </message>
    <message>
        <source>Draw a table as an SVG picture that fills a page when printed.</source>
        <translation>Zeichnet eine Tabelle als SVG-Bild, das gedruckt eine Seite füllt.</translation>
    </message>
    <message>
        <source>Shows the points, the linear course between them, wrong points with their numbers, and the range. Units are printed with the axes; no value is converted.</source>
        <translation>Zeigt die Punkte, den linearen Verlauf dazwischen, falsche Punkte mit ihren Nummern und den Bereich. Einheiten stehen an den Achsen; kein Wert wird umgerechnet.</translation>
    </message>
    <message>
        <source>The picture to write.</source>
        <translation>Das Bild, das geschrieben wird.</translation>
    </message>
    <message>
        <source>The unit of the positions in the file.</source>
        <translation>Die Einheit der Positionen in der Datei.</translation>
    </message>
    <message>
        <source>The unit of the adjustments in the file; that of --unit unless given.</source>
        <translation>Die Einheit der Korrekturen in der Datei; wenn nicht angegeben, die von --unit.</translation>
    </message>
    <message>
        <source>The title, instead of the comment in the file.</source>
        <translation>Der Titel anstelle des Kommentars in der Datei.</translation>
    </message>
    <message>
        <source>no parameter matches &quot;%1&quot;.%2</source>
        <translation>kein Parameter passt zu &quot;%1&quot;.%2</translation>
    </message>
    <message>
        <source>Set parameters to the defaults of their definitions.</source>
        <translation>Setzt Parameter auf die Vorgabewerte ihrer Definitionen.</translation>
    </message>
    <message>
        <source>A value file.</source>
        <translation>Eine Wertedatei.</translation>
    </message>
    <message>
        <source>The definition file.</source>
        <translation>Die Definitionsdatei.</translation>
    </message>
    <message>
        <source>The hardware id; needed when the file has several.</source>
        <translation>Die Hardware-ID; nötig, wenn die Datei mehrere hat.</translation>
    </message>
    <message>
        <source>Only this sub-device, 0 to 255.</source>
        <translation>Nur dieses Subdevice, 0 bis 255.</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>DATEI</translation>
    </message>
    <message>
        <source>TYPE</source>
        <translation>TYP</translation>
    </message>
    <message>
        <source>VERSION</source>
        <translation>VERSION</translation>
    </message>
    <message>
        <source>COMMENT</source>
        <translation>KOMMENTAR</translation>
    </message>
    <message>
        <source>Tell the type, the version and the comment of files.</source>
        <translation>Nennt Typ, Version und Kommentar von Dateien.</translation>
    </message>
    <message>
        <source>Any files.</source>
        <translation>Beliebige Dateien.</translation>
    </message>
    <message>
        <source>One of csv, tsv and json.</source>
        <translation>Eines von csv, tsv und json.</translation>
    </message>
    <message>
        <source>A definition file: adds units, the names of choices and bits, and defaults.</source>
        <translation>Eine Definitionsdatei: ergänzt Einheiten, die Namen von Auswahlwerten und Bits sowie Vorgabewerte.</translation>
    </message>
    <message>
        <source>there is no parameter &quot;%1&quot;.%2</source>
        <translation>den Parameter &quot;%1&quot; gibt es nicht.%2</translation>
    </message>
    <message>
        <source>there is no parameter &quot;%1&quot; in sub-device %2; it is in %3.</source>
        <translation>den Parameter &quot;%1&quot; gibt es im Subdevice %2 nicht; er ist in %3.</translation>
    </message>
    <message>
        <source>HARDWARE ID</source>
        <translation>HARDWARE-ID</translation>
    </message>
    <message>
        <source>SUB-DEVICE</source>
        <translation>SUBDEVICE</translation>
    </message>
    <message>
        <source>NAME</source>
        <translation>NAME</translation>
    </message>
    <message>
        <source>VALUE</source>
        <translation>WERT</translation>
    </message>
    <message>
        <source>UNIT</source>
        <translation>EINHEIT</translation>
    </message>
    <message>
        <source>MEANING</source>
        <translation>BEDEUTUNG</translation>
    </message>
    <message>
        <source>Print the values of parameters by their names.</source>
        <translation>Gibt die Werte von Parametern nach ihren Namen aus.</translation>
    </message>
    <message>
        <source>All hardware ids and sub-devices that have a parameter are listed, unless options choose one. The exit status is 1 when a name is found nowhere; the others are still printed.</source>
        <translation>Alle Hardware-IDs und Subdevices, die einen Parameter haben, werden gezeigt, wenn keine Option eines auswählt. Der Exit-Status ist 1, wenn ein Name nirgends gefunden wird; die anderen werden trotzdem ausgegeben.</translation>
    </message>
    <message>
        <source>A definition file: adds units, names of choices and bits, and a &quot;*&quot; before what is not the default.</source>
        <translation>Eine Definitionsdatei: ergänzt Einheiten, Namen von Auswahlwerten und Bits sowie ein &quot;*&quot; vor allem, was nicht der Vorgabewert ist.</translation>
    </message>
    <message>
        <source>SUB-DEVICES</source>
        <translation>SUBDEVICES</translation>
    </message>
    <message>
        <source>PARAMETERS</source>
        <translation>PARAMETER</translation>
    </message>
    <message>
        <source>a hardware id must not be empty.</source>
        <translation>eine Hardware-ID darf nicht leer sein.</translation>
    </message>
    <message>
        <source>there is a hardware id &quot;%1&quot; already; remove it first.</source>
        <translation>die Hardware-ID &quot;%1&quot; gibt es schon; entfernen Sie sie zuerst.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is the last hardware id, and a file must have one; delete the file instead.</source>
        <translation>&quot;%1&quot; ist die letzte Hardware-ID, und eine Datei muss eine haben; löschen Sie stattdessen die Datei.</translation>
    </message>
    <message>
        <source>Prints the hardware ids that the file has then.</source>
        <translation>Gibt die Hardware-IDs aus, die die Datei danach hat.</translation>
    </message>
    <message>
        <source>List the hardware ids of a file.</source>
        <translation>Zeigt die Hardware-IDs einer Datei.</translation>
    </message>
    <message>
        <source>Copy a hardware id with all its values to a new one.</source>
        <translation>Kopiert eine Hardware-ID mit allen Werten in eine neue.</translation>
    </message>
    <message>
        <source>The hardware id to copy.</source>
        <translation>Die Hardware-ID, die kopiert wird.</translation>
    </message>
    <message>
        <source>The new hardware id.</source>
        <translation>Die neue Hardware-ID.</translation>
    </message>
    <message>
        <source>Give a hardware id another name.</source>
        <translation>Gibt einer Hardware-ID einen anderen Namen.</translation>
    </message>
    <message>
        <source>Remove a hardware id with all its values.</source>
        <translation>Entfernt eine Hardware-ID mit allen Werten.</translation>
    </message>
    <message>
        <source>The hardware id to remove; not the last one.</source>
        <translation>Die Hardware-ID, die entfernt wird; nicht die letzte.</translation>
    </message>
    <message>
        <source>this is a file of type %1; values for a file of type %2 are needed here.</source>
        <translation>dies ist eine Datei vom Typ %1; hier werden Werte für eine Datei vom Typ %2 gebraucht.</translation>
    </message>
    <message>
        <source>parameter &quot;%1&quot; of sub-device %2 is neither in the source nor defined, so there is no value for it. --keep-missing leaves such parameters as they are.</source>
        <translation>der Parameter &quot;%1&quot; des Subdevice %2 ist weder in der Quelle noch definiert, also gibt es keinen Wert für ihn. --keep-missing lässt solche Parameter, wie sie sind.</translation>
    </message>
    <message>
        <source>Take over the values of another file, or of another hardware id.</source>
        <translation>Übernimmt die Werte einer anderen Datei oder einer anderen Hardware-ID.</translation>
    </message>
    <message>
        <source>The value file to change.</source>
        <translation>Die Wertedatei, die geändert wird.</translation>
    </message>
    <message>
        <source>The value file to take values from.</source>
        <translation>Die Wertedatei, aus der die Werte kommen.</translation>
    </message>
    <message>
        <source>The hardware id in SOURCE; needed when it has several.</source>
        <translation>Die Hardware-ID in SOURCE; nötig, wenn es mehrere hat.</translation>
    </message>
    <message>
        <source>The hardware id in DEST; needed when it has several.</source>
        <translation>Die Hardware-ID in DEST; nötig, wenn es mehrere hat.</translation>
    </message>
    <message>
        <source>Leave what SOURCE lacks as it is, instead of setting it to its default.</source>
        <translation>Lässt, was in SOURCE fehlt, wie es ist, statt es auf den Vorgabewert zu setzen.</translation>
    </message>
    <message>
        <source>CONFLICT</source>
        <translation>KONFLIKT</translation>
    </message>
    <message>
        <source>Merge the changes of two files that come from one.</source>
        <translation>Führt die Änderungen zweier Dateien zusammen, die aus einer entstanden sind.</translation>
    </message>
    <message>
        <source>Where the result goes to.</source>
        <translation>Wohin das Ergebnis geschrieben wird.</translation>
    </message>
    <message>
        <source>A file of motors is needed (LumoMotorParameters).</source>
        <translation>Es wird eine Datei mit Motoren gebraucht (LumoMotorParameters).</translation>
    </message>
    <message>
        <source>MOTOR</source>
        <translation>MOTOR</translation>
    </message>
    <message>
        <source>List the motors that files hold.</source>
        <translation>Zeigt die Motoren, die in Dateien stehen.</translation>
    </message>
    <message>
        <source>The hardware ids of a file of motors are the names of the motors. When several files hold a motor of one name, the last one counts.</source>
        <translation>Die Hardware-IDs einer Motorendatei sind die Namen der Motoren. Wenn mehrere Dateien einen Motor desselben Namens enthalten, gilt die letzte.</translation>
    </message>
    <message>
        <source>Files of motors.</source>
        <translation>Dateien mit Motoren.</translation>
    </message>
    <message>
        <source>A hardware id must not be empty.</source>
        <translation>Eine Hardware-ID darf nicht leer sein.</translation>
    </message>
    <message>
        <source>the file exists already and is not replaced.</source>
        <translation>die Datei gibt es schon; sie wird nicht ersetzt.</translation>
    </message>
    <message>
        <source>Make a value file with every defined parameter at its default.</source>
        <translation>Legt eine Wertedatei mit allen definierten Parametern und ihren Vorgabewerten an.</translation>
    </message>
    <message>
        <source>The value file to make.</source>
        <translation>Die Wertedatei, die angelegt wird.</translation>
    </message>
    <message>
        <source>The hardware id.</source>
        <translation>Die Hardware-ID.</translation>
    </message>
    <message>
        <source>The sub-device, 0 to 255; 0 unless given.</source>
        <translation>Das Subdevice, 0 bis 255; 0, wenn nicht angegeben.</translation>
    </message>
    <message>
        <source>The group to put the parameters into, such as Motion/Limits.</source>
        <translation>Die Gruppe, in die die Parameter kommen, zum Beispiel Motion/Limits.</translation>
    </message>
    <message>
        <source>The root element; LumoParameters unless given.</source>
        <translation>Das Wurzelelement; LumoParameters, wenn nicht angegeben.</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>CHOICES FOUND</source>
        <translation>GEFUNDENE AUSWAHLWERTE</translation>
    </message>
    <message>
        <source>HINT</source>
        <translation>HINWEIS</translation>
    </message>
    <message>
        <source>A definition file.</source>
        <translation>Eine Definitionsdatei.</translation>
    </message>
    <message>
        <source>What to look for.</source>
        <translation>Wonach gesucht wird.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not of the form NAME=VALUE.</source>
        <translation>&quot;%1&quot; hat nicht die Form NAME=WERT.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is set twice.</source>
        <translation>&quot;%1&quot; wird zweimal gesetzt.</translation>
    </message>
    <message>
        <source>OLD</source>
        <translation>ALT</translation>
    </message>
    <message>
        <source>NEW</source>
        <translation>NEU</translation>
    </message>
    <message>
        <source>(unchanged)</source>
        <translation>(unverändert)</translation>
    </message>
    <message>
        <source>Change values of parameters that a file has.</source>
        <translation>Ändert Werte von Parametern, die eine Datei hat.</translation>
    </message>
    <message>
        <source>The sub-device, 0 to 255; needed when several have a parameter of the name.</source>
        <translation>Das Subdevice, 0 bis 255; nötig, wenn mehrere einen Parameter dieses Namens haben.</translation>
    </message>
    <message>
        <source>The definition file to check the values against.</source>
        <translation>Die Definitionsdatei, gegen die die Werte geprüft werden.</translation>
    </message>
    <message>
        <source>Show what is in a file.</source>
        <translation>Zeigt, was in einer Datei steht.</translation>
    </message>
    <message>
        <source>A file of any kind.</source>
        <translation>Eine Datei beliebiger Art.</translation>
    </message>
    <message>
        <source>The definition file of a value file.</source>
        <translation>Die Definitionsdatei einer Wertedatei.</translation>
    </message>
    <message>
        <source>List the sub-devices of a file, such as the axes of a drive.</source>
        <translation>Zeigt die Subdevices einer Datei, etwa die Achsen eines Antriebs.</translation>
    </message>
    <message>
        <source>Copy all values of one sub-device to another.</source>
        <translation>Kopiert alle Werte eines Subdevice in ein anderes.</translation>
    </message>
    <message>
        <source>The groups and parameters of TO become those of FROM; TO is created when it does not exist. What only TO had is removed. TO keeps its type and name when it has them.</source>
        <translation>Die Gruppen und Parameter von TO werden die von FROM; TO wird angelegt, wenn es nicht existiert. Was nur TO hatte, wird entfernt. TO behält seinen Typ und Namen, wenn es sie hat.</translation>
    </message>
    <message>
        <source>The sub-device to copy, 0 to 255.</source>
        <translation>Das Subdevice, das kopiert wird, 0 bis 255.</translation>
    </message>
    <message>
        <source>The sub-device to overwrite.</source>
        <translation>Das Subdevice, das überschrieben wird.</translation>
    </message>
    <message>
        <source>Print one JSON object; values are texts in it, never numbers.</source>
        <translation>Gibt ein JSON-Objekt aus; Werte sind darin Texte und nie Zahlen.</translation>
    </message>
    <message>
        <source>Show what would be done, and leave the file as it is.</source>
        <translation>Zeigt, was getan würde, und lässt die Datei, wie sie ist.</translation>
    </message>
    <message>
        <source>Dry run: nothing was saved.</source>
        <translation>Probelauf: nichts wurde gespeichert.</translation>
    </message>
    <message>
        <source>Points: %1</source>
        <translation>Punkte: %1</translation>
    </message>
    <message>
        <source>Points: %1, in the old format</source>
        <translation>Punkte: %1, im alten Format</translation>
    </message>
    <message>
        <source>Points: none</source>
        <translation>Punkte: keine</translation>
    </message>
    <message>
        <source>Range: %1 to %2</source>
        <translation>Bereich: %1 bis %2</translation>
    </message>
    <message>
        <source>; wrong: %1</source>
        <translation>; falsch: %1</translation>
    </message>
    <message>
        <source>the results could not be written: %1</source>
        <translation>die Ergebnisse konnten nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>taken %1, equal %2, defaulted %3, kept %4, added %5, removed %6, unknown %7, failed %8</source>
        <translation>übernommen %1, gleich %2, Vorgabe %3, behalten %4, hinzugefügt %5, entfernt %6, unbekannt %7, fehlgeschlagen %8</translation>
    </message>
    <message>
        <source>other type</source>
        <translation>anderer Typ</translation>
    </message>
    <message>
        <source>other name</source>
        <translation>anderer Name</translation>
    </message>
    <message>
        <source>hardware id added</source>
        <translation>Hardware-ID hinzugefügt</translation>
    </message>
    <message>
        <source>hardware id removed</source>
        <translation>Hardware-ID entfernt</translation>
    </message>
    <message>
        <source>sub-device added</source>
        <translation>Subdevice hinzugefügt</translation>
    </message>
    <message>
        <source>sub-device removed</source>
        <translation>Subdevice entfernt</translation>
    </message>
    <message>
        <source>added</source>
        <translation>hinzugefügt</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>entfernt</translation>
    </message>
    <message>
        <source>moved</source>
        <translation>verschoben</translation>
    </message>
    <message>
        <source>other id</source>
        <translation>andere ID</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>CHANGE</source>
        <translation>ÄNDERUNG</translation>
    </message>
    <message>
        <source>there is no folder &quot;%1&quot;.</source>
        <translation>den Ordner &quot;%1&quot; gibt es nicht.</translation>
    </message>
    <message>
        <source>there is no such file.</source>
        <translation>diese Datei gibt es nicht.</translation>
    </message>
    <message>
        <source>there is no such file. Did you mean &quot;%1&quot;?</source>
        <translation>diese Datei gibt es nicht. Meinten Sie &quot;%1&quot;?</translation>
    </message>
    <message>
        <source>this is a folder; name a file.</source>
        <translation>dies ist ein Ordner; nennen Sie eine Datei.</translation>
    </message>
    <message>
        <source>this is a link to a file that does not exist.</source>
        <translation>dies ist ein Verweis auf eine Datei, die es nicht gibt.</translation>
    </message>
    <message>
        <source>files are not read from the standard input; name a file.</source>
        <translation>Dateien werden nicht von der Standardeingabe gelesen; nennen Sie eine Datei.</translation>
    </message>
    <message>
        <source>there is no folder &quot;%1&quot;; make it first.</source>
        <translation>den Ordner &quot;%1&quot; gibt es nicht; legen Sie ihn zuerst an.</translation>
    </message>
    <message>
        <source>a save puts a new file in the place of the old one; you need permission to write to the folder &quot;%1&quot;.</source>
        <translation>beim Speichern tritt eine neue Datei an die Stelle der alten; Sie brauchen das Recht, in den Ordner &quot;%1&quot; zu schreiben.</translation>
    </message>
    <message>
        <source>ktoparam shows and edits the parameter files of servo drives.</source>
        <translation>ktoparam zeigt und bearbeitet die Parameterdateien von Servoantrieben.</translation>
    </message>
    <message>
        <source>Usage: ktoparam COMMAND [options] FILE…</source>
        <translation>Aufruf: ktoparam COMMAND [Optionen] FILE…</translation>
    </message>
    <message>
        <source>Tell more about a command.</source>
        <translation>Sagt mehr über einen Befehl.</translation>
    </message>
    <message>
        <source>Print the version of this program.</source>
        <translation>Gibt die Version dieses Programms aus.</translation>
    </message>
    <message>
        <source>Commands:</source>
        <translation>Befehle:</translation>
    </message>
    <message>
        <source>done</source>
        <translation>erledigt</translation>
    </message>
    <message>
        <source>findings, differences, or something that was refused</source>
        <translation>Befunde, Unterschiede oder etwas, das abgelehnt wurde</translation>
    </message>
    <message>
        <source>wrong usage</source>
        <translation>falscher Aufruf</translation>
    </message>
    <message>
        <source>a file could not be read or written</source>
        <translation>eine Datei konnte nicht gelesen oder geschrieben werden</translation>
    </message>
    <message>
        <source>Exit status:</source>
        <translation>Exit-Status:</translation>
    </message>
    <message>
        <source>Arguments:</source>
        <translation>Argumente:</translation>
    </message>
    <message>
        <source>Print this help.</source>
        <translation>Gibt diese Hilfe aus.</translation>
    </message>
    <message>
        <source>Options:</source>
        <translation>Optionen:</translation>
    </message>
    <message>
        <source>Example:</source>
        <translation>Beispiel:</translation>
    </message>
    <message>
        <source>A settings file is needed here.</source>
        <translation>Hier wird eine Einstellungsdatei gebraucht.</translation>
    </message>
    <message>
        <source>A compensation file is needed here.</source>
        <translation>Hier wird eine Kompensationsdatei gebraucht.</translation>
    </message>
    <message>
        <source>There is no option &quot;%1&quot;.</source>
        <translation>Die Option &quot;%1&quot; gibt es nicht.</translation>
    </message>
    <message>
        <source>There is no option &quot;%1&quot;. Did you mean &quot;--%2&quot;?</source>
        <translation>Die Option &quot;%1&quot; gibt es nicht. Meinten Sie &quot;--%2&quot;?</translation>
    </message>
    <message>
        <source>--%1 takes no value.</source>
        <translation>--%1 hat keinen Wert.</translation>
    </message>
    <message>
        <source>%1 is missing after %2.</source>
        <translation>%1 fehlt hinter %2.</translation>
    </message>
    <message>
        <source>It is not replaced.</source>
        <translation>Sie wird nicht ersetzt.</translation>
    </message>
    <message>
        <source>this is a definition file. %1</source>
        <translation>dies ist eine Definitionsdatei. %1</translation>
    </message>
    <message>
        <source>this is a value file (%1). %2</source>
        <translation>dies ist eine Wertedatei (%1). %2</translation>
    </message>
    <message>
        <source>this is a settings file. %1</source>
        <translation>dies ist eine Einstellungsdatei. %1</translation>
    </message>
    <message>
        <source>this is a compensation file. %1</source>
        <translation>dies ist eine Kompensationsdatei. %1</translation>
    </message>
    <message>
        <source>A file of definitions, values, settings or compensation is needed here.</source>
        <translation>Hier wird eine Definitions-, Werte-, Einstellungs- oder Kompensationsdatei gebraucht.</translation>
    </message>
    <message>
        <source>not bit %1</source>
        <translation>nicht Bit %1</translation>
    </message>
    <message>
        <source>bit %1</source>
        <translation>Bit %1</translation>
    </message>
    <message>
        <source>DEFAULT</source>
        <translation>VORGABE</translation>
    </message>
    <message>
        <source>MIN</source>
        <translation>MIN</translation>
    </message>
    <message>
        <source>MAX</source>
        <translation>MAX</translation>
    </message>
    <message>
        <source>CHOICES</source>
        <translation>AUSWAHLWERTE</translation>
    </message>
    <message>
        <source>Hardware id %1, sub-device %2 (%3)</source>
        <translation>Hardware-ID %1, Subdevice %2 (%3)</translation>
    </message>
    <message>
        <source> Did you mean &quot;%1&quot;?</source>
        <translation> Meinten Sie &quot;%1&quot;?</translation>
    </message>
    <message>
        <source>%1, … (%2 in all)</source>
        <translation>%1, … (insgesamt %2)</translation>
    </message>
    <message>
        <source>[options]</source>
        <translation>[Optionen]</translation>
    </message>
    <message>
        <source>--%1 needs --%2.</source>
        <translation>--%1 braucht --%2.</translation>
    </message>
    <message>
        <source>NEW is missing. Without it, --%1 or --%2 tells what to compare with.</source>
        <translation>NEW fehlt. Ohne diese Angabe sagt --%1 oder --%2, womit verglichen wird.</translation>
    </message>
    <message>
        <source>Compare it with this one of NEW.</source>
        <translation>Vergleicht damit die angegebene von NEW.</translation>
    </message>
    <message>
        <source>Writing %1 …</source>
        <translation>Schreibt %1 …</translation>
    </message>
    <message>
        <source>Checking %1 …</source>
        <translation>Prüft %1 …</translation>
    </message>
    <message>
        <source>Comparing …</source>
        <translation>Vergleicht …</translation>
    </message>
    <message>
        <source>Merging …</source>
        <translation>Führt zusammen …</translation>
    </message>
    <message>
        <source>Reading %1 …</source>
        <translation>Liest %1 …</translation>
    </message>
    <message>
        <source>Reading %1 (file %2) …</source>
        <translation>Liest %1 (Datei %2) …</translation>
    </message>
    <message>
        <source>Value files, or definition files.</source>
        <translation>Wertedateien oder Definitionsdateien.</translation>
    </message>
    <message>
        <source>The type is the name of the root element, when it is that of a parameter file. The exit status is 1 when a type is not known.</source>
        <translation>Der Typ ist der Name des Wurzelelements, wenn es das einer Parameterdatei ist. Der Exit-Status ist 1, wenn ein Typ nicht bekannt ist.</translation>
    </message>
    <message>
        <source>the file is empty.</source>
        <translation>die Datei ist leer.</translation>
    </message>
    <message>
        <source>the root element &lt;%1&gt; is not that of a parameter file.</source>
        <translation>das Wurzelelement &lt;%1&gt; ist nicht das einer Parameterdatei.</translation>
    </message>
    <message>
        <source>sub-device %1: %2</source>
        <translation>Subdevice %1: %2</translation>
    </message>
    <message>
        <source> They are: %1.</source>
        <translation> Es gibt: %1.</translation>
    </message>
    <message>
        <source>warning: %1</source>
        <translation>Warnung: %1</translation>
    </message>
    <message>
        <source>All assignments are checked first; then all are made and the file is saved, or none. With --def a value must be of its type and within the definition&apos;s limits and those of its limit parameters in the same sub-device, or be one of its choices; the name of a choice, radio button or check box state (checked, unchecked, undefined) may be given in place of its value, and is looked for before a number. Bits without a name are set with a warning. Without --def a value is taken as it is typed.
Values of other parameters that are limited by a changed one are not looked at.</source>
        <translation>Zuerst werden alle Zuweisungen geprüft; dann werden alle ausgeführt und die Datei gespeichert, oder keine. Mit --def muss ein Wert von seinem Typ sein und in den Grenzen der Definition und ihrer Grenzparameter im selben Subdevice liegen oder einer ihrer Auswahlwerte sein; statt des Wertes kann der Name eines Auswahlwertes, eines Optionsfeldes oder eines Zustands des Kontrollkästchens (checked, unchecked, undefined) stehen, der vor einer Zahl gesucht wird. Bits ohne Namen werden mit einer Warnung gesetzt. Ohne --def wird ein Wert genommen, wie er getippt ist.
Werte anderer Parameter, die ein geänderter begrenzt, werden nicht betrachtet.</translation>
    </message>
    <message>
        <source>the results are cut off here, since they are more than %1 times as long as the files.</source>
        <translation>die Ergebnisse sind hier abgeschnitten, da sie mehr als %1-mal so lang wie die Dateien sind.</translation>
    </message>
    <message>
        <source>there is not enough memory for these files.</source>
        <translation>der Speicher reicht für diese Dateien nicht aus.</translation>
    </message>
    <message>
        <source>the settings are nested deeper than %1 levels, which is too deep for JSON; &quot;ktoparam text&quot; prints them.</source>
        <translation>die Einstellungen sind tiefer als %1 Ebenen geschachtelt, was für JSON zu tief ist; &quot;ktoparam text&quot; gibt sie aus.</translation>
    </message>
    <message>
        <source>the file cannot be written: %1.</source>
        <translation>die Datei kann nicht geschrieben werden: %1.</translation>
    </message>
    <message>
        <source>this is not valid text in the encoding of the locale.</source>
        <translation>das ist kein gültiger Text in der Kodierung der Locale.</translation>
    </message>
    <message>
        <source>A command must come before &quot;%1&quot;. See &quot;ktoparam help&quot;.</source>
        <translation>Vor &quot;%1&quot; muss ein Befehl stehen. Siehe &quot;ktoparam help&quot;.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a command.%2 See &quot;ktoparam help&quot;.</source>
        <translation>&quot;%1&quot; ist kein Befehl.%2 Siehe &quot;ktoparam help&quot;.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a sub-device; these are numbers from 0 to 255.</source>
        <translation>&quot;%1&quot; ist kein Subdevice; diese sind Zahlen von 0 bis 255.</translation>
    </message>
    <message>
        <source>Lists all findings with file and line: values that are not of their type, beyond their limits or not a choice, unnamed bits, parameters that are not defined, wrong ids, hardware ids that give a sub-device different types or names, and bad definitions. Without a value file, definitions alone are checked. Several value files are checked against the same definitions.
The exit status is 1 when there are errors or warnings.</source>
        <translation>Zeigt alle Befunde mit Datei und Zeile: Werte, die nicht von ihrem Typ sind, außerhalb ihrer Grenzen liegen oder kein Auswahlwert sind, Bits ohne Namen, nicht definierte Parameter, falsche IDs, Hardware-IDs, die einem Subdevice verschiedene Typen oder Namen geben, und fehlerhafte Definitionen. Ohne Wertedatei werden nur Definitionen geprüft. Mehrere Wertedateien werden gegen dieselben Definitionen geprüft.
Der Exit-Status ist 1, wenn es Fehler oder Warnungen gibt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a format of points; use &quot;%2&quot; or &quot;%3&quot;.</source>
        <translation>&quot;%1&quot; ist kein Format für Punkte; es gibt &quot;%2&quot; und &quot;%3&quot;.</translation>
    </message>
    <message>
        <source>The range must not be empty, and the positions must lie in it and grow; only the first %1 points are ever valid. After a point that is too far, all points not beyond it are wrong, too. Texts that are not numbers and points that lack something are also listed. The exit status is 1 when there is anything.</source>
        <translation>Der Bereich darf nicht leer sein, und die Positionen müssen in ihm liegen und wachsen; nur die ersten %1 Punkte sind überhaupt gültig. Nach einem Punkt, der zu weit liegt, sind auch alle falsch, die nicht noch weiter liegen. Texte, die keine Zahlen sind, und Punkte, denen etwas fehlt, werden ebenfalls genannt. Der Exit-Status ist 1, wenn es etwas gibt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a format; use csv, tsv or json.</source>
        <translation>&quot;%1&quot; ist kein Format; es gibt csv, tsv und json.</translation>
    </message>
    <message>
        <source>One line for each value, after a line of headings, in UTF-8; or one JSON object. CSV quotes fields as RFC 4180 says; in TSV, tabs and line breaks become \t, \n and \r, and \ becomes \\.</source>
        <translation>Eine Zeile für jeden Wert hinter einer Zeile mit Überschriften, in UTF-8; oder ein JSON-Objekt. CSV setzt Felder nach RFC 4180 in Anführungszeichen; in TSV werden Tabulatoren und Zeilenumbrüche zu \t, \n und \r, und \ wird zu \\.</translation>
    </message>
    <message>
        <source>The current hardware id.</source>
        <translation>Die Hardware-ID, wie sie ist.</translation>
    </message>
    <message>
        <source>The definition file: values that are the same number are not a conflict then.</source>
        <translation>Die Definitionsdatei: Werte, die dieselbe Zahl sind, sind dann kein Konflikt.</translation>
    </message>
    <message>
        <source>motor &quot;%1&quot; is also in %2; this file counts.</source>
        <translation>der Motor &quot;%1&quot; steht auch in %2; diese Datei gilt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a type of value file.%2 The types are: %3.</source>
        <translation>&quot;%1&quot; ist kein Typ einer Wertedatei.%2 Es gibt: %3.</translation>
    </message>
    <message>
        <source>%1 is not a value file; --json is the only option for others.</source>
        <translation>%1 ist keine Wertedatei; für andere gibt es nur die Option --json.</translation>
    </message>
    <message>
        <source>this is not a regular file.</source>
        <translation>dies ist keine reguläre Datei.</translation>
    </message>
    <message>
        <source>Print files as lines that can be compared.</source>
        <translation>Gibt Dateien in Zeilen aus, die sich vergleichen lassen.</translation>
    </message>
    <message>
        <source>Files of any kind.</source>
        <translation>Dateien beliebiger Art.</translation>
    </message>
    <message>
        <source>--def and --no-def cannot be used together.</source>
        <translation>--def und --no-def können nicht zusammen benutzt werden.</translation>
    </message>
    <message>
        <source>--%1 is given twice.</source>
        <translation>--%1 ist doppelt angegeben.</translation>
    </message>
    <message>
        <source>Do without definitions, also where a definition file is found.</source>
        <translation>Kommt ohne Definitionen aus, auch wo sich eine Definitionsdatei findet.</translation>
    </message>
    <message>
        <source>Give up at once, and not after ten seconds, while another program changes a file in the folder.</source>
        <translation>Sofort aufgeben, und nicht erst nach zehn Sekunden, solange ein anderes Programm eine Datei im Ordner ändert.</translation>
    </message>
    <message>
        <source>Names of parameters, patterns with &quot;*&quot; and &quot;?&quot;, groups (Motion/Limits), or addresses as text prints them (KTO-2A-16[2]/Motion/Limits/VelocityLimit). Put patterns in quotes, or the shell looks for files.</source>
        <translation>Namen von Parametern, Muster mit &quot;*&quot; und &quot;?&quot;, Gruppen (Motion/Limits) oder Adressen, wie text sie ausgibt (KTO-2A-16[2]/Motion/Limits/VelocityLimit). Muster gehören in Anführungszeichen, sonst sucht die Shell nach Dateien.</translation>
    </message>
    <message>
        <source>The definition file of all value files; without it, one is looked for.</source>
        <translation>Die Definitionsdatei aller Wertedateien; ohne sie wird eine gesucht.</translation>
    </message>
    <message>
        <source>Without a name all parameters of the hardware id are set. Parameters that are not defined, or whose definition has no default, are left as they are and listed as skipped or kept. A name or pattern that is found nowhere is an error, and nothing is changed then.
Defaults that the definitions do not allow are set all the same and told as &quot;check&quot; tells them, as are other values that a limit parameter no longer allows then; the exit status is 1 when one of them is an error.</source>
        <translation>Ohne Namen werden alle Parameter der Hardware-ID gesetzt. Parameter, die nicht definiert sind oder deren Definition keinen Vorgabewert hat, bleiben, wie sie sind, und werden als übersprungen oder behalten aufgelistet. Ein Name oder Muster, das nirgends gefunden wird, ist ein Fehler; dann wird nichts geändert.
Vorgabewerte, die die Definitionen nicht erlauben, werden trotzdem gesetzt und gemeldet, wie &quot;check&quot; sie meldet, ebenso andere Werte, die ein Grenzparameter dann nicht mehr erlaubt; der Exit-Status ist 1, wenn einer davon ein Fehler ist.</translation>
    </message>
    <message>
        <source>%1 parameters have other ids; --only id lists them.</source>
        <translation>%1 Parameter haben andere IDs; --only id listet sie auf.</translation>
    </message>
    <message>
        <source>Only these, with commas between them: %1.</source>
        <translation>Nur diese, durch Kommas getrennt: %1.</translation>
    </message>
    <message>
        <source>Print values for a spreadsheet or a program.</source>
        <translation>Gibt Werte für eine Tabellenkalkulation oder ein Programm aus.</translation>
    </message>
    <message>
        <source>In CSV, a text that a spreadsheet would run as a formula has an apostrophe in front, and so has one that begins with an apostrophe. &quot;import --csv&quot; takes the values back.</source>
        <translation>In CSV steht vor einem Text, den eine Tabellenkalkulation als Formel ausführen würde, ein Apostroph, und ebenso vor einem, der mit einem Apostroph beginnt. &quot;import --csv&quot; nimmt die Werte zurück.</translation>
    </message>
    <message>
        <source>SOURCE or --csv FILE is missing.</source>
        <translation>SOURCE oder --csv FILE fehlt.</translation>
    </message>
    <message>
        <source>SOURCE and --csv cannot be used together.</source>
        <translation>SOURCE und --csv gehen nicht zusammen.</translation>
    </message>
    <message>
        <source>--%1 goes with SOURCE, not with --csv.</source>
        <translation>--%1 gehört zu SOURCE, nicht zu --csv.</translation>
    </message>
    <message>
        <source>Every parameter of DEST gets the value that SOURCE has for the same sub-device and name, or else the default of its definition. Parameters that only SOURCE has are added when they are defined, and skipped (&quot;unknown&quot;) when they are not. All is done, or nothing.
DEST and SOURCE may be one file with two hardware ids.
Lists by name what was taken, got the default, was kept, added or skipped, with old and new value; what was equal already is only counted.
Values that the definitions do not allow are told as &quot;check&quot; tells them: those that were written, and others that a written limit parameter no longer allows. Nothing is saved then, and the exit status is 1. What was wrong before and stays as it was is not looked at; warnings, such as of unnamed bits, do not count.</source>
        <translation>Jeder Parameter von DEST bekommt den Wert, den SOURCE für dasselbe Subdevice und denselben Namen hat, sonst den Vorgabewert seiner Definition. Parameter, die nur SOURCE hat, werden hinzugefügt, wenn sie definiert sind, und übersprungen (&quot;unbekannt&quot;), wenn nicht. Es geschieht alles oder nichts.
DEST und SOURCE dürfen eine Datei mit zwei Hardware-IDs sein.
Listet mit Namen auf, was übernommen wurde, den Vorgabewert bekam, behalten, hinzugefügt oder übersprungen wurde, mit altem und neuem Wert; was schon gleich war, wird nur gezählt.
Werte, die die Definitionen nicht erlauben, werden gemeldet, wie &quot;check&quot; sie meldet: geschriebene und andere, die ein geschriebener Grenzparameter nicht mehr erlaubt. Dann wird nichts gespeichert, und der Exit-Status ist 1. Was vorher falsch war und so bleibt, wird nicht betrachtet; Warnungen, etwa zu Bits ohne Namen, zählen nicht.</translation>
    </message>
    <message>
        <source>The definition file of DEST; needed with SOURCE.</source>
        <translation>Die Definitionsdatei von DEST; nötig mit SOURCE.</translation>
    </message>
    <message>
        <source>Save all the same where the definitions do not allow a value, and exit with 0. What they do not allow is still told.</source>
        <translation>Auch dann speichern, wenn die Definitionen einen Wert nicht erlauben, und mit 0 enden. Was sie nicht erlauben, wird weiterhin gemeldet.</translation>
    </message>
    <message>
        <source>The parameters are those of the definition file, by id. A file that exists is never replaced. The file gets version 1.0.
Defaults that the definitions do not allow, also missing ones of numbers, are written all the same and told as &quot;check&quot; tells them; the exit status is 1 when one of them is an error.</source>
        <translation>Die Parameter sind die der Definitionsdatei, nach ID geordnet. Eine vorhandene Datei wird nie ersetzt. Die Datei bekommt die Version 1.0.
Vorgabewerte, die die Definitionen nicht erlauben, auch fehlende von Zahlen, werden trotzdem geschrieben und gemeldet, wie &quot;check&quot; sie meldet; der Exit-Status ist 1, wenn einer davon ein Fehler ist.</translation>
    </message>
    <message>
        <source>minimum %1</source>
        <translation>Minimum %1</translation>
    </message>
    <message>
        <source>maximum %1</source>
        <translation>Maximum %1</translation>
    </message>
    <message>
        <source>LIMITS FOUND</source>
        <translation>GEFUNDENE GRENZEN</translation>
    </message>
    <message>
        <source>nothing has this word in its name, hint, choices or limits, or as its id.%1</source>
        <translation>nichts hat dieses Wort im Namen, im Hinweis, in den Auswahlwerten oder Grenzen, oder als ID.%1</translation>
    </message>
    <message>
        <source>nothing has all these words in its name, hint, choices and limits, or as its id.%1</source>
        <translation>nichts hat alle diese Wörter im Namen, im Hinweis, in den Auswahlwerten und Grenzen, oder als ID.%1</translation>
    </message>
    <message>
        <source>Find parameters by words in their names, hints and choices, by ids and by limits.</source>
        <translation>Findet Parameter nach Wörtern in Namen, Hinweisen und Auswahlwerten, nach IDs und nach Grenzen.</translation>
    </message>
    <message>
        <source>Lists the definitions that have all words, or parts of words; capitals make no difference. A number also finds the id, choices and limits that are that number, and the whole name of a parameter finds those that it limits. The first words that are names of files are searched as well. The exit status is 1 when nothing is found.</source>
        <translation>Zeigt die Definitionen, die alle Wörter oder Wortteile enthalten; Groß- und Kleinschreibung ist gleich. Eine Zahl findet auch die ID sowie Auswahlwerte und Grenzen, die diese Zahl sind, und der ganze Name eines Parameters jene, die er begrenzt. Die ersten Wörter, die Namen von Dateien sind, werden ebenfalls durchsucht. Der Exit-Status ist 1, wenn nichts gefunden wird.</translation>
    </message>
    <message>
        <source>With --def, bits may be given as they are shown, such as &quot;DI4 | bit 7&quot;; named ones that are not given are not active then.</source>
        <translation>Mit --def dürfen Bits so angegeben werden, wie sie gezeigt werden, etwa &quot;DI4 | bit 7&quot;; benannte, die nicht angegeben sind, sind dann nicht aktiv.</translation>
    </message>
    <message>
        <source>Without --def, a definition file that is found changes nothing that is stored; there is a warning of what it does not allow.</source>
        <translation>Ohne --def ändert eine gefundene Definitionsdatei nichts an dem, was gespeichert wird; was sie nicht erlaubt, wird als Warnung gemeldet.</translation>
    </message>
    <message>
        <source>Names or addresses of parameters, and their new values.</source>
        <translation>Namen oder Adressen von Parametern und ihre neuen Werte.</translation>
    </message>
    <message>
        <source>%1 has no parameters; names choose among those of values and definitions.</source>
        <translation>%1 hat keine Parameter; Namen wählen unter denen von Werten und Definitionen aus.</translation>
    </message>
    <message>
        <source>Definitions are shown as a table, values as a tree for each hardware id and sub-device. With --def, units and the names of choices and bits are shown with the values, and a &quot;*&quot; before each value that is not the default.
Settings are shown as a tree, compensation tables point by point, with a &quot;!&quot; before each wrong one.
With names, only these values are shown, or each of these definitions is shown whole: also which parameters limit it, which it limits, and what else refers to it. A definition may be named by its id, too. A name goes before a pattern. The exit status is 1 when one is not found; the others are still shown.
A text is quoted, as in JSON, when it is empty, begins or ends with a blank, or holds line breaks or control characters.</source>
        <translation>Definitionen erscheinen als Tabelle, Werte als Baum für jede Hardware-ID und jedes Subdevice. Mit --def stehen Einheiten und die Namen von Auswahlwerten und Bits neben den Werten, und ein &quot;*&quot; vor jedem Wert, der nicht der Vorgabewert ist.
Einstellungen erscheinen als Baum, Kompensationstabellen Punkt für Punkt, mit einem &quot;!&quot; vor jedem falschen.
Mit Namen erscheinen nur diese Werte, oder jede dieser Definitionen ganz: auch, welche Parameter sie begrenzen, welche sie begrenzt und was sonst auf sie verweist. Eine Definition kann auch mit ihrer ID genannt werden. Ein Name geht vor einem Muster. Der Status ist 1, wenn einer nicht gefunden wird; die anderen erscheinen trotzdem.
Ein Text steht wie in JSON in Anführungszeichen, wenn er leer ist, mit einem Leerzeichen anfängt oder endet oder Zeilenumbrüche oder Steuerzeichen enthält.</translation>
    </message>
    <message>
        <source>Only values that are not the default; needs definitions.</source>
        <translation>Nur Werte, die nicht der Vorgabewert sind; braucht Definitionen.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>This file cannot be read: %1</source>
        <translation>Diese Datei kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>Each value has a line of its own with all that tells where it belongs, so that any tool that compares lines shows what changed. Files of different content never give the same lines: names are quoted, as in JSON, where they would mislead. Ids come last. The date, which each save renews, is left out. Of several files, each line begins with the file&apos;s name.
git uses it with *.xparam diff=ktoparam in .gitattributes, and once in each clone:
git config diff.ktoparam.textconv &quot;ktoparam text --textconv --&quot;</source>
        <translation>Jeder Wert hat eine eigene Zeile mit allem, was sagt, wohin er gehört, so dass jedes Programm, das Zeilen vergleicht, zeigt, was sich geändert hat. Dateien mit verschiedenem Inhalt ergeben nie dieselben Zeilen: Namen stehen wie in JSON in Anführungszeichen, wo sie sonst irreführen würden. Die IDs stehen am Ende. Das Datum, das jedes Speichern erneuert, fehlt. Bei mehreren Dateien beginnt jede Zeile mit dem Namen der Datei.
git benutzt es mit *.xparam diff=ktoparam in .gitattributes und einmal in jedem Klon:
git config diff.ktoparam.textconv &quot;ktoparam text --textconv --&quot;</translation>
    </message>
    <message>
        <source>For git: of a file that cannot be read, print why and then its content, and exit with 0.</source>
        <translation>Für git: Bei einer Datei, die nicht gelesen werden kann, den Grund und dann ihren Inhalt ausgeben und mit 0 enden.</translation>
    </message>
    <message>
        <source>another program is changing a file in the same folder; nothing was done. &quot;lslocks&quot; tells which program it is.</source>
        <translation>ein anderes Programm ändert gerade eine Datei im selben Ordner; nichts wurde getan. &quot;lslocks&quot; zeigt, welches Programm es ist.</translation>
    </message>
    <message>
        <source>the definitions are those of %1.</source>
        <translation>die Definitionen sind die von %1.</translation>
    </message>
    <message>
        <source> Its bits are: %1.</source>
        <translation> Seine Bits sind: %1.</translation>
    </message>
    <message>
        <source>there is no hardware id &quot;%1&quot;.</source>
        <translation>die Hardware-ID &quot;%1&quot; gibt es nicht.</translation>
    </message>
    <message>
        <source> The file has: %1.</source>
        <translation> Die Datei hat: %1.</translation>
    </message>
    <message>
        <source>in the sub-devices %1; the column subDevice has to tell which.</source>
        <translation>in den Subdevices %1; die Spalte subDevice muss sagen, in welchem.</translation>
    </message>
    <message>
        <source>not in that group; its address is %1.</source>
        <translation>nicht in dieser Gruppe; die Adresse ist %1.</translation>
    </message>
    <message>
        <source>not defined in the definition file.</source>
        <translation>in der Definitionsdatei nicht definiert.</translation>
    </message>
    <message>
        <source>stored as it is typed; with --def it would be %1.</source>
        <translation>gespeichert, wie eingegeben; mit --def wäre es %1.</translation>
    </message>
    <message>
        <source>line %1 has another value for it: %2.</source>
        <translation>Zeile %1 hat dafür einen anderen Wert: %2.</translation>
    </message>
    <message>
        <source>it is set twice, also to %1.</source>
        <translation>er wird zweimal gesetzt, auch auf %1.</translation>
    </message>
    <message>
        <source>a quote stands where no field begins or ends.</source>
        <translation>ein Anführungszeichen steht, wo kein Feld beginnt oder endet.</translation>
    </message>
    <message>
        <source>a field begins with a quote and does not end with one.</source>
        <translation>ein Feld beginnt mit einem Anführungszeichen und endet nicht mit einem.</translation>
    </message>
    <message>
        <source>the headings &quot;%1&quot; and &quot;%2&quot; are missing here, in a line separated by &quot;,&quot; or &quot;;&quot; as export --format csv writes it.</source>
        <translation>hier fehlen die Überschriften &quot;%1&quot; und &quot;%2&quot;, in einer durch &quot;,&quot; oder &quot;;&quot; getrennten Zeile, wie export --format csv sie schreibt.</translation>
    </message>
    <message>
        <source>the heading &quot;%1&quot; is there twice.</source>
        <translation>die Überschrift &quot;%1&quot; steht zweimal da.</translation>
    </message>
    <message>
        <source>this is not UTF-8; save the table as &quot;CSV UTF-8&quot;, or as CSV with the character set UTF-8.</source>
        <translation>dies ist nicht UTF-8; speichern Sie die Tabelle als &quot;CSV UTF-8&quot; oder als CSV mit dem Zeichensatz UTF-8.</translation>
    </message>
    <message>
        <source>the heading &quot;%1&quot; is missing, and %2 has several hardware ids; choose one with --hardware-id: %3.</source>
        <translation>die Überschrift &quot;%1&quot; fehlt, und %2 hat mehrere Hardware-IDs; wählen Sie eine mit --hardware-id: %3.</translation>
    </message>
    <message>
        <source>the line has %1 fields, and there are %2 headings.</source>
        <translation>die Zeile hat %1 Felder, und es gibt %2 Überschriften.</translation>
    </message>
    <message>
        <source>the hardware id is missing.</source>
        <translation>die Hardware-ID fehlt.</translation>
    </message>
    <message>
        <source>taken</source>
        <translation>übernommen</translation>
    </message>
    <message>
        <source>default</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>kept</source>
        <translation>behalten</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>übersprungen</translation>
    </message>
    <message>
        <source>WHAT</source>
        <translation>WAS</translation>
    </message>
    <message>
        <source>%1 is not in the hardware id %2.</source>
        <translation>%1 ist nicht in der Hardware-ID %2.</translation>
    </message>
    <message>
        <source>%1 is not in sub-device %2.</source>
        <translation>%1 ist nicht im Subdevice %2.</translation>
    </message>
    <message>
        <source>values that are not allowed: %1; they were saved all the same.</source>
        <translation>Werte, die nicht erlaubt sind: %1; sie wurden trotzdem gespeichert.</translation>
    </message>
    <message>
        <source>values that are not allowed: %1; nothing is saved unless --allow-invalid is given.</source>
        <translation>Werte, die nicht erlaubt sind: %1; ohne --allow-invalid wird nichts gespeichert.</translation>
    </message>
    <message>
        <source>changed %1, equal %2, skipped %3</source>
        <translation>geändert %1, gleich %2, übersprungen %3</translation>
    </message>
    <message>
        <source>A table of values to take instead of SOURCE.</source>
        <translation>Eine Tabelle von Werten, die statt SOURCE genommen wird.</translation>
    </message>
    <message>
        <source>With --csv, DEST gets the values of a table that &quot;export --format csv&quot; printed and a spreadsheet saved, in UTF-8, with commas or semicolons. Its columns are found by their headings: name and value, and hardwareId and subDevice where DEST has several; all others are for reading. A row with the value that the parameter has is no edit. All rows are checked first, as &quot;set&quot; checks what is typed; then all changes are made, or none. Without --def a value is taken as the table has it, so that a spreadsheet&apos;s 1,5 or 1E+05 is stored like that; use --def, or look at the plan with --dry-run. With --hardware-id, rows of others are skipped.</source>
        <translation>Mit --csv bekommt DEST die Werte einer Tabelle, die &quot;export --format csv&quot; ausgegeben und eine Tabellenkalkulation gespeichert hat, in UTF-8, mit Kommas oder Semikolons. Ihre Spalten werden an den Überschriften erkannt: name und value, und hardwareId und subDevice, wo DEST mehrere hat; alle anderen sind zum Lesen da. Eine Zeile mit dem Wert, den der Parameter hat, ist keine Änderung. Alle Zeilen werden zuerst geprüft, wie &quot;set&quot; prüft, was eingegeben wird; dann werden alle Änderungen gemacht oder keine. Ohne --def wird ein Wert so genommen, wie die Tabelle ihn hat: 1,5 oder 1E+05 einer Tabellenkalkulation wird so gespeichert; verwenden Sie --def, oder sehen Sie sich den Plan mit --dry-run an. Mit --hardware-id werden Zeilen anderer übersprungen.</translation>
    </message>
    <message>
        <source>no definition matches &quot;%1&quot;.%2</source>
        <translation>auf &quot;%1&quot; passt keine Definition.%2</translation>
    </message>
    <message>
        <source>there is no definition &quot;%1&quot;.%2</source>
        <translation>die Definition &quot;%1&quot; gibt es nicht.%2</translation>
    </message>
    <message>
        <source>--only does not know &quot;%1&quot;.%2 It takes, with commas between them: %3.</source>
        <translation>--only kennt &quot;%1&quot; nicht.%2 Möglich sind, durch Kommas getrennt: %3.</translation>
    </message>
    <message>
        <source>GROUP</source>
        <translation>GRUPPE</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>%1, chosen by %2</source>
        <translation>%1, gewählt durch %2</translation>
    </message>
    <message>
        <source>or another value</source>
        <translation>oder ein anderer Wert</translation>
    </message>
    <message>
        <source>%1 (while clear)</source>
        <translation>%1 (solange gelöscht)</translation>
    </message>
    <message>
        <source>%1 (not defined)</source>
        <translation>%1 (nicht definiert)</translation>
    </message>
    <message>
        <source>Id</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Minimum of</source>
        <translation>Minimum von</translation>
    </message>
    <message>
        <source>Maximum of</source>
        <translation>Maximum von</translation>
    </message>
    <message>
        <source>Choices</source>
        <translation>Auswahlwerte</translation>
    </message>
    <message>
        <source>Radio buttons</source>
        <translation>Optionsfelder</translation>
    </message>
    <message>
        <source>Check box</source>
        <translation>Kontrollkästchen</translation>
    </message>
    <message>
        <source>Bits</source>
        <translation>Bits</translation>
    </message>
    <message>
        <source>Visible when</source>
        <translation>Sichtbar bei</translation>
    </message>
    <message>
        <source>Visibility of</source>
        <translation>Sichtbarkeit von</translation>
    </message>
    <message>
        <source>Unit of</source>
        <translation>Einheit von</translation>
    </message>
    <message>
        <source>Hint</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>--changed needs a definition file, which tells the defaults.</source>
        <translation>--changed braucht eine Definitionsdatei, die die Vorgabewerte nennt.</translation>
    </message>
    <message>
        <source>--%1 is for definition files.</source>
        <translation>--%1 ist für Definitionsdateien.</translation>
    </message>
    <message>
        <source>Show how two files of values or definitions differ.</source>
        <translation>Zeigen, wie sich zwei Werte- oder Definitionsdateien unterscheiden.</translation>
    </message>
    <message>
        <source>Lists what was added, removed, changed and moved to another group. With --def, values that are the same number are equal, however they are written. The order of parameters, the date and the comment do not count as differences.
Two hardware ids or two sub-devices can be compared, too, also of one file; the list shows those of NEW then. Files of other kinds can be compared as &quot;ktoparam text&quot; prints them.
An id that changed in the same way wherever its parameter is stands in the list once, without hardware id or sub-device; more than 24 such lines are only counted. The counts of all kinds follow and, behind a list of more than 24 lines, where most differences are.
Two definition files are compared by name, renamed definitions by id. What differs is safe (every value that was allowed still is, and means the same), or values may break, or their meaning changed.
The exit status is 1 when there are differences; with --only or --breaking, when there are some of these kinds.</source>
        <translation>Zeigt, was hinzugefügt, entfernt, geändert oder in eine andere Gruppe verschoben wurde. Mit --def sind Werte gleich, die dieselbe Zahl sind, wie auch immer sie geschrieben sind. Die Reihenfolge der Parameter, das Datum und der Kommentar sind keine Unterschiede.
Auch zwei Hardware-IDs oder zwei Subdevices lassen sich vergleichen, auch die einer einzigen Datei; in der Liste stehen dann die von NEW. Dateien anderer Art lassen sich so vergleichen, wie &quot;ktoparam text&quot; sie ausgibt.
Eine ID, die sich überall, wo es ihren Parameter gibt, gleich geändert hat, steht nur einmal in der Liste, ohne Hardware-ID oder Subdevice; mehr als 24 solche Zeilen werden nur gezählt. Danach stehen die Zahlen aller Arten und hinter einer Liste von mehr als 24 Zeilen, wo die meisten Unterschiede sind.
Zwei Definitionsdateien werden nach Namen verglichen, umbenannte Definitionen nach ihrer ID. Was sich unterscheidet, ist sicher (jeder bisher erlaubte Wert bleibt erlaubt und bedeutet dasselbe), oder Werte können ungültig werden, oder ihre Bedeutung hat sich geändert.
Der Exit-Status ist 1, wenn es Unterschiede gibt; mit --only oder --breaking, wenn es welche dieser Arten gibt.</translation>
    </message>
    <message>
        <source>A value file or a definition file.</source>
        <translation>Eine Wertedatei oder eine Definitionsdatei.</translation>
    </message>
    <message>
        <source>A file of the same kind; OLD unless given, where an option names its other part.</source>
        <translation>Eine Datei derselben Art; ohne Angabe OLD, wenn eine Option den anderen Teil davon nennt.</translation>
    </message>
    <message>
        <source>Of definition files, only what is not safe.</source>
        <translation>Bei Definitionsdateien nur, was nicht sicher ist.</translation>
    </message>
    <message>
        <source>--%1 is for value files.</source>
        <translation>--%1 ist für Wertedateien.</translation>
    </message>
    <message>
        <source>Takes what THEIRS changed since BASE into OURS, parameter by parameter, or, of definition files, field by field of each definition. Where both changed the same thing differently, OUT keeps what OURS has, the conflict is listed, and the exit status is 1. The date of the Head never conflicts. With an empty BASE, the files were made independently.
OUT may be one of the three files, as a merge driver of git needs it.</source>
        <translation>Übernimmt Parameter für Parameter, was THEIRS seit BASE geändert hat, in OURS, bei Definitionsdateien Feld für Feld jeder Definition. Haben beide dasselbe verschieden geändert, behält OUT, was OURS hat, der Konflikt wird aufgeführt, und der Exit-Status ist 1. Das Datum im Head ist nie ein Konflikt. Mit leerem BASE sind die Dateien unabhängig entstanden.
OUT darf eine der drei Dateien sein, wie es ein Merge-Treiber von git braucht.</translation>
    </message>
    <message>
        <source>The value or definition file that both come from.</source>
        <translation>Die Werte- oder Definitionsdatei, von der beide stammen.</translation>
    </message>
    <message>
        <source>One&apos;s own file.</source>
        <translation>Die eigene Datei.</translation>
    </message>
    <message>
        <source>The other file.</source>
        <translation>Die andere Datei.</translation>
    </message>
    <message>
        <source>rules %1, questions %2, proposals %3</source>
        <translation>Regeln %1, Fragen %2, Vorschläge %3</translation>
    </message>
    <message>
        <source>Draft a table that migrates values to other definitions.</source>
        <translation>Eine Tabelle entwerfen, die Werte auf andere Definitionen umstellt.</translation>
    </message>
    <message>
        <source>Definitions with another name or id, and choices and bits with other numbers, become rules. What only looks like a rename or another unit becomes a comment with the reason: take it out of the comment to use it. All else that changes what values mean, or loses them, becomes a question.</source>
        <translation>Definitionen mit anderem Namen oder anderer ID sowie Auswahlwerte und Bits mit anderen Nummern werden zu Regeln. Was nur nach einem neuen Namen oder einer anderen Einheit aussieht, wird zu einem Kommentar mit dem Grund: Um es zu benutzen, nimmt man es aus dem Kommentar heraus. Alles andere, was die Bedeutung von Werten ändert oder sie verliert, wird zu einer Frage.</translation>
    </message>
    <message>
        <source>The definition file of the values as they are.</source>
        <translation>Die Definitionsdatei der Werte, wie sie sind.</translation>
    </message>
    <message>
        <source>The definition file that they will have.</source>
        <translation>Die Definitionsdatei, die sie bekommen.</translation>
    </message>
    <message>
        <source>Write the table to this file and print how much is open; without it, print the table.</source>
        <translation>Die Tabelle in diese Datei schreiben und ausgeben, wie viel offen ist; ohne sie die Tabelle ausgeben.</translation>
    </message>
    <message>
        <source>errors %1, warnings %2</source>
        <translation>Fehler %1, Warnungen %2</translation>
    </message>
    <message>
        <source>Find what is wrong with a migration table.</source>
        <translation>Finden, was an einer Migrationstabelle nicht stimmt.</translation>
    </message>
    <message>
        <source>Lists with file and line: rules for parameters that are not defined, that contradict each other or cannot work on the types, and parameters whose meaning changed and that no rule is about. Warnings are what may be meant, such as parameters that are lost.
The exit status is 1 when there are errors.</source>
        <translation>Nennt mit Datei und Zeile: Regeln für Parameter, die nicht definiert sind, die einander widersprechen oder die bei den Typen nicht möglich sind, und Parameter, deren Bedeutung sich geändert hat und von denen keine Regel handelt. Warnungen sind, was so gemeint sein kann, etwa Parameter, die verloren gehen.
Bei Fehlern ist der Exit-Status 1.</translation>
    </message>
    <message>
        <source>A migration table.</source>
        <translation>Eine Migrationstabelle.</translation>
    </message>
    <message>
        <source>The definition file of the old release.</source>
        <translation>Die Definitionsdatei der alten Ausgabe.</translation>
    </message>
    <message>
        <source>The definition file of the new release.</source>
        <translation>Die Definitionsdatei der neuen Ausgabe.</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>id</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>minimum parameters</source>
        <translation>Minimum-Parameter</translation>
    </message>
    <message>
        <source>maximum parameters</source>
        <translation>Maximum-Parameter</translation>
    </message>
    <message>
        <source>choices</source>
        <translation>Auswahlwerte</translation>
    </message>
    <message>
        <source>radio buttons</source>
        <translation>Optionsfelder</translation>
    </message>
    <message>
        <source>check box</source>
        <translation>Kontrollkästchen</translation>
    </message>
    <message>
        <source>bits</source>
        <translation>Bits</translation>
    </message>
    <message>
        <source>visibility</source>
        <translation>Sichtbarkeit</translation>
    </message>
    <message>
        <source>hint</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>safe</source>
        <translation>sicher</translation>
    </message>
    <message>
        <source>values may break</source>
        <translation>Werte ungültig</translation>
    </message>
    <message>
        <source>meaning changed</source>
        <translation>Bedeutung geändert</translation>
    </message>
    <message>
        <source>EFFECT</source>
        <translation>WIRKUNG</translation>
    </message>
    <message>
        <source>definitions %1, differences %2: %3</source>
        <translation>Definitionen %1, Unterschiede %2: %3</translation>
    </message>
    <message>
        <source>this is a migration table; see &quot;ktoparam help migrate&quot;.</source>
        <translation>dies ist eine Migrationstabelle; siehe &quot;ktoparam help migrate&quot;.</translation>
    </message>
    <message>
        <source>Definitions that are new: %1; nothing is added for them.</source>
        <translation>Neue Definitionen: %1; für sie wird nichts hinzugefügt.</translation>
    </message>
    <message>
        <source>The tables drop what does not come back: %1</source>
        <translation>Die Tabellen lassen weg, was nicht zurückkommt: %1</translation>
    </message>
    <message>
        <source>Nothing is saved, since this would not come back: %1</source>
        <translation>Nichts wird gespeichert, denn das käme nicht zurück: %1</translation>
    </message>
    <message>
        <source>Saved as version %1; &quot;ktoparam check&quot; tells what the definitions find.</source>
        <translation>Gespeichert als Version %1; &quot;ktoparam check&quot; sagt, was die Definitionen finden.</translation>
    </message>
    <message>
        <source>What is open was saved all the same.</source>
        <translation>Was offen ist, wurde trotzdem gespeichert.</translation>
    </message>
    <message>
        <source>Decide with --answer NAME=VALUE, or with a rule in the table; --allow-open saves all the same.</source>
        <translation>Entscheiden Sie mit --answer NAME=WERT oder mit einer Regel in der Tabelle; --allow-open speichert trotzdem.</translation>
    </message>
    <message>
        <source>Migrating …</source>
        <translation>Migrieren …</translation>
    </message>
    <message>
        <source>warning: the file looks as if it was migrated already: %1</source>
        <translation>Warnung: die Datei sieht aus, als wäre sie schon migriert: %1</translation>
    </message>
    <message>
        <source>Take values over from the definitions of one release to those of the next.</source>
        <translation>Werte von den Definitionen eines Standes zu denen des nächsten übernehmen.</translation>
    </message>
    <message>
        <source>Migration tables say what becomes of renamed, rescaled, renumbered, moved and dropped parameters. The plan is listed with a line for all that changes; what no rule is about keeps its text. All hardware ids are migrated, or nothing is saved.
Where a human has to decide, or the new definitions do not allow a value that the old ones did, nothing is saved and the exit status is 1: give an --answer, or --allow-open. Nothing is added for new definitions; &quot;ktoparam check&quot; lists them.
Several tables lead from release to release: --old A --table T --new B --table U --new C. With --reverse the file goes the other way, back to the --old definitions, unless the plan tells that something does not come back.
A file that looks as if it was migrated already is told and not saved without --allow-open: it has new names and none of the old ones, the version that the table gives, or the new release in its comment. A table without any of these leaves no mark that could be seen.</source>
        <translation>Migrationstabellen sagen, was aus umbenannten, umgerechneten, umnummerierten, verschobenen und entfallenen Parametern wird. Der Plan hat eine Zeile für alles, was sich ändert; wovon keine Regel handelt, behält seinen Text. Alle Hardware-Ids werden migriert, oder nichts wird gespeichert.
Wo ein Mensch entscheiden muss, oder wo die neuen Definitionen einen Wert nicht erlauben, den die alten erlaubten, wird nichts gespeichert, und der Rückgabewert ist 1: geben Sie eine --answer, oder --allow-open. Für neue Definitionen wird nichts hinzugefügt; &quot;ktoparam check&quot; nennt sie.
Mehrere Tabellen führen von Stand zu Stand: --old A --table T --new B --table U --new C. Mit --reverse geht die Datei den anderen Weg, zurück zu den Definitionen von --old, außer wenn der Plan sagt, dass etwas nicht zurückkommt.
Eine Datei, die aussieht, als wäre sie schon migriert, wird gemeldet und ohne --allow-open nicht gespeichert: sie hat neue Namen und keinen der alten, die Version, die die Tabelle vergibt, oder den neuen Stand in ihrem Kommentar. Eine Tabelle ohne all das hinterlässt keine Spur, die zu sehen wäre.</translation>
    </message>
    <message>
        <source>The migration table.</source>
        <translation>Die Migrationstabelle.</translation>
    </message>
    <message>
        <source>The definition file that it leads from.</source>
        <translation>Die Definitionsdatei, von der sie ausgeht.</translation>
    </message>
    <message>
        <source>The definition file that it leads to.</source>
        <translation>Die Definitionsdatei, zu der sie führt.</translation>
    </message>
    <message>
        <source>From the new definitions back to the old ones.</source>
        <translation>Von den neuen Definitionen zurück zu den alten.</translation>
    </message>
    <message>
        <source>The new value of a parameter, by its new name, where one has to be decided about. May be repeated.</source>
        <translation>Der neue Wert eines Parameters, unter seinem neuen Namen, wo über einen zu entscheiden ist. Darf mehrmals stehen.</translation>
    </message>
    <message>
        <source>Save all the same what nobody decided about, with its old value.</source>
        <translation>Auch speichern, worüber niemand entschieden hat, mit seinem alten Wert.</translation>
    </message>
    <message>
        <source>Where the result goes to; FILE unless given.</source>
        <translation>Wohin das Ergebnis geht; FILE, wenn nichts angegeben ist.</translation>
    </message>
    <message>
        <source>Each --table needs its --new, the definitions that it leads to.</source>
        <translation>Zu jedem --table gehört ein --new, die Definitionen, zu denen sie führt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an answer; write NAME=VALUE.</source>
        <translation>&quot;%1&quot; ist keine Antwort; schreiben Sie NAME=WERT.</translation>
    </message>
    <message>
        <source>it has &quot;%1&quot;, a name after the migration, and none of the names before it.</source>
        <translation>sie hat &quot;%1&quot;, einen Namen nach der Migration, und keinen der Namen davor.</translation>
    </message>
    <message>
        <source>it has the version %1 already, which the table gives.</source>
        <translation>sie hat schon die Version %1, die die Tabelle vergibt.</translation>
    </message>
    <message>
        <source>its comment names the release &quot;%1&quot;.</source>
        <translation>ihr Kommentar nennt den Stand &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>decide</source>
        <translation>entscheiden</translation>
    </message>
    <message>
        <source>not allowed</source>
        <translation>nicht erlaubt</translation>
    </message>
    <message>
        <source>dropped</source>
        <translation>entfallen</translation>
    </message>
    <message>
        <source>rounded</source>
        <translation>gerundet</translation>
    </message>
    <message>
        <source>converted</source>
        <translation>umgerechnet</translation>
    </message>
    <message>
        <source>replaced</source>
        <translation>ersetzt</translation>
    </message>
    <message>
        <source>renamed</source>
        <translation>umbenannt</translation>
    </message>
    <message>
        <source>group renamed</source>
        <translation>Gruppe umbenannt</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 und %2 weitere</translation>
    </message>
    <message>
        <source>A human has to decide:</source>
        <translation>Ein Mensch muss entscheiden:</translation>
    </message>
    <message>
        <source>WHERE</source>
        <translation>WO</translation>
    </message>
    <message>
        <source>NEW NAME</source>
        <translation>NEUER NAME</translation>
    </message>
    <message>
        <source>WHY</source>
        <translation>WARUM</translation>
    </message>
    <message>
        <source>Nothing changes.</source>
        <translation>Nichts ändert sich.</translation>
    </message>
    <message>
        <source>Rounded: %1</source>
        <translation>Gerundet: %1</translation>
    </message>
    <message>
        <source>Dropped: %1</source>
        <translation>Entfallen: %1</translation>
    </message>
    <message>
        <source>Would not come back with --reverse: %1</source>
        <translation>Käme mit --reverse nicht zurück: %1</translation>
    </message>
</context>
</TS>
