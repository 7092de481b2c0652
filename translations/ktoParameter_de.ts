<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>CAtomicFile</name>
    <message>
        <source>this is not a regular file.</source>
        <translation>dies ist keine reguläre Datei.</translation>
    </message>
    <message>
        <source>the file cannot be opened: %1.</source>
        <translation>die Datei kann nicht geöffnet werden: %1.</translation>
    </message>
    <message>
        <source>the file is larger than 512 MiB.</source>
        <translation>die Datei ist größer als 512 MiB.</translation>
    </message>
    <message>
        <source>there is not enough memory to read the file.</source>
        <translation>der Speicher reicht nicht aus, um die Datei zu lesen.</translation>
    </message>
    <message>
        <source>the file cannot be read: %1.</source>
        <translation>die Datei kann nicht gelesen werden: %1.</translation>
    </message>
    <message>
        <source>this is not a regular file and is not replaced.</source>
        <translation>dies ist keine reguläre Datei; sie wird nicht ersetzt.</translation>
    </message>
    <message>
        <source>the file cannot be written: %1.</source>
        <translation>die Datei kann nicht geschrieben werden: %1.</translation>
    </message>
    <message>
        <source>the file cannot be written, the old one is kept: %1.</source>
        <translation>die Datei kann nicht geschrieben werden, die alte bleibt erhalten: %1.</translation>
    </message>
    <message>
        <source>the file is written, but its folder could not be synced to the disk: %1.</source>
        <translation>die Datei ist geschrieben, aber ihr Ordner konnte nicht auf die Platte gesichert werden: %1.</translation>
    </message>
    <message>
        <source>this is not a regular file and is not kept as a backup.</source>
        <translation>dies ist keine reguläre Datei; sie wird nicht als Sicherung aufgehoben.</translation>
    </message>
    <message>
        <source>the file cannot be kept as &quot;%1&quot;: %2.</source>
        <translation>die Datei kann nicht als &quot;%1&quot; aufgehoben werden: %2.</translation>
    </message>
    <message>
        <source>the file name is empty.</source>
        <translation>der Dateiname ist leer.</translation>
    </message>
    <message>
        <source>the path contains a symbolic link of another user in a folder that everybody can write to</source>
        <translation>der Pfad enthält einen symbolischen Link eines anderen Benutzers in einem Ordner, in den alle schreiben können</translation>
    </message>
    <message>
        <source>owner</source>
        <translation>Eigentümer</translation>
    </message>
    <message>
        <source>group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>access control list</source>
        <translation>Zugriffssteuerungsliste</translation>
    </message>
    <message>
        <source>attributes</source>
        <translation>Attribute</translation>
    </message>
    <message>
        <source>the file is saved, but these could not be kept: %1.</source>
        <translation>die Datei ist gespeichert, aber das konnte nicht erhalten werden: %1.</translation>
    </message>
    <message>
        <source>the name is not valid text in the encoding of the locale, so it could mean another file. Rename the file, or set the locale of its name.</source>
        <translation>der Name ist kein gültiger Text in der Kodierung der Locale und könnte daher eine andere Datei meinen. Die Datei umbenennen oder die Locale ihres Namens einstellen.</translation>
    </message>
    <message>
        <source>the file exists already and is not replaced.</source>
        <translation>die Datei gibt es schon, und sie wird nicht ersetzt.</translation>
    </message>
</context>
<context>
    <name>CBitNames</name>
    <message>
        <source>&quot;%1&quot; is not the name of a bit.</source>
        <translation>&quot;%1&quot; ist nicht der Name eines Bits.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not go with the type %2 or with the other bits.</source>
        <translation>&quot;%1&quot; passt nicht zum Typ %2 oder zu den anderen Bits.</translation>
    </message>
</context>
<context>
    <name>CCompensationFileImpl</name>
    <message>
        <source>Old compensation data point format found.</source>
        <translation>Kompensationspunkte im alten Format gefunden.</translation>
    </message>
    <message>
        <source>Parse error, %1 not found.</source>
        <translation>Fehler beim Lesen, %1 nicht gefunden.</translation>
    </message>
    <message>
        <source>The element &quot;%1&quot; could not be written.</source>
        <translation>Das Element &quot;%1&quot; konnte nicht geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>CCompensationFindings</name>
    <message>
        <source>%1 %2 cannot be read as a number and counts as 0</source>
        <translation>%1 %2 kann nicht als Zahl gelesen werden und zählt als 0</translation>
    </message>
    <message>
        <source>%1 %2 is not finite</source>
        <translation>%1 %2 ist nicht endlich</translation>
    </message>
    <message>
        <source>without a position, which counts as 0</source>
        <translation>ohne Position, die als 0 zählt</translation>
    </message>
    <message>
        <source>its adjustment is not in the format of the first point and counts as 0</source>
        <translation>die Korrektur ist nicht im Format des ersten Punktes und zählt als 0</translation>
    </message>
    <message>
        <source>without an adjustment, which counts as 0</source>
        <translation>ohne Korrektur, die als 0 zählt</translation>
    </message>
    <message>
        <source>the minimum</source>
        <translation>das Minimum</translation>
    </message>
    <message>
        <source>the maximum</source>
        <translation>das Maximum</translation>
    </message>
    <message>
        <source>the minimum %1 is not below the maximum %2</source>
        <translation>das Minimum %1 ist nicht kleiner als das Maximum %2</translation>
    </message>
    <message>
        <source>below the minimum %1</source>
        <translation>kleiner als das Minimum %1</translation>
    </message>
    <message>
        <source>above the maximum %1</source>
        <translation>größer als das Maximum %1</translation>
    </message>
    <message>
        <source>not above the position %1 of point %2</source>
        <translation>nicht größer als die Position %1 von Punkt %2</translation>
    </message>
    <message>
        <source>at the minimum %1, where only the first point may be</source>
        <translation>auf dem Minimum %1, wo nur der erste Punkt sein darf</translation>
    </message>
    <message>
        <source>the position</source>
        <translation>die Position</translation>
    </message>
    <message>
        <source>the adjustment</source>
        <translation>die Korrektur</translation>
    </message>
    <message>
        <source>beyond the first %1 points</source>
        <translation>hinter den ersten %1 Punkten</translation>
    </message>
    <message>
        <source>outside the range, which is not valid</source>
        <translation>außerhalb des Bereichs, der ungültig ist</translation>
    </message>
</context>
<context>
    <name>CCompensationPlot</name>
    <message>
        <source>%1, … (%2 in all)</source>
        <translation>%1, … (insgesamt %2)</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 in %2</translation>
    </message>
    <message>
        <source>Compensation table</source>
        <translation>Kompensationstabelle</translation>
    </message>
    <message>
        <source>Range %1 to %2</source>
        <translation>Bereich %1 bis %2</translation>
    </message>
    <message>
        <source>points: %1 (old format)</source>
        <translation>Punkte: %1 (altes Format)</translation>
    </message>
    <message>
        <source>points: %1</source>
        <translation>Punkte: %1</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Adjustment</source>
        <translation>Korrektur</translation>
    </message>
    <message>
        <source>min %1</source>
        <translation>min. %1</translation>
    </message>
    <message>
        <source>max %1</source>
        <translation>max. %1</translation>
    </message>
    <message>
        <source>points and linear course</source>
        <translation>Punkte und linearer Verlauf</translation>
    </message>
    <message>
        <source>wrong points: %1</source>
        <translation>falsche Punkte: %1</translation>
    </message>
    <message>
        <source>range</source>
        <translation>Bereich</translation>
    </message>
    <message>
        <source>outside the range</source>
        <translation>außerhalb des Bereichs</translation>
    </message>
    <message>
        <source>the range is too large to be shown</source>
        <translation>der Bereich ist zu groß, um dargestellt zu werden</translation>
    </message>
    <message>
        <source>the table has no points</source>
        <translation>die Tabelle hat keine Punkte</translation>
    </message>
    <message>
        <source>points not shown because they are not finite or too large: %1</source>
        <translation>nicht dargestellte Punkte, die keine endlichen Zahlen oder zu groß sind: %1</translation>
    </message>
</context>
<context>
    <name>CDefinitionComparison</name>
    <message>
        <source>A text and a number are read differently.</source>
        <translation>Ein Text und eine Zahl werden verschieden gelesen.</translation>
    </message>
    <message>
        <source>Decimals and &quot;0x&quot; are not read by both types.</source>
        <translation>Nachkommastellen und &quot;0x&quot; lesen nicht beide Typen.</translation>
    </message>
    <message>
        <source>Every allowed value is the same number of the new type.</source>
        <translation>Jeder erlaubte Wert ist dieselbe Zahl des neuen Typs.</translation>
    </message>
    <message>
        <source>Not every allowed value is a number of the new type; unsigned ones take no sign, not even that of &quot;-0&quot;.</source>
        <translation>Nicht jeder erlaubte Wert ist eine Zahl des neuen Typs; vorzeichenlose nehmen kein Vorzeichen, auch nicht das von &quot;-0&quot;.</translation>
    </message>
    <message>
        <source>Negative values set other bits.</source>
        <translation>Negative Werte setzen andere Bits.</translation>
    </message>
    <message>
        <source>Values below %1 are no longer allowed.</source>
        <translation>Werte unter %1 sind nicht mehr erlaubt.</translation>
    </message>
    <message>
        <source>It allows every value that was allowed.</source>
        <translation>Jeder bisher erlaubte Wert bleibt erlaubt.</translation>
    </message>
    <message>
        <source>Values above %1 are no longer allowed.</source>
        <translation>Werte über %1 sind nicht mehr erlaubt.</translation>
    </message>
    <message>
        <source>It only informs.</source>
        <translation>Das informiert nur.</translation>
    </message>
    <message>
        <source>No value was made for it.</source>
        <translation>Dafür wurde noch kein Wert gemacht.</translation>
    </message>
    <message>
        <source>Its values are no longer defined.</source>
        <translation>Seine Werte sind nicht mehr definiert.</translation>
    </message>
    <message>
        <source>Values are found by their names.</source>
        <translation>Werte werden nach ihren Namen gefunden.</translation>
    </message>
    <message>
        <source>Values keep the old id until they are migrated.</source>
        <translation>Werte behalten die alte ID, bis sie umgestellt werden.</translation>
    </message>
    <message>
        <source>The id %1 was that of &quot;%2&quot;.</source>
        <translation>Die ID %1 war die von &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>The id %1 is that of &quot;%2&quot; now.</source>
        <translation>Die ID %1 ist jetzt die von &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>The same number is another quantity.</source>
        <translation>Dieselbe Zahl ist eine andere Größe.</translation>
    </message>
    <message>
        <source>It is the unit of others in files that do not have it.</source>
        <translation>Er ist die Einheit anderer in Dateien, die ihn nicht haben.</translation>
    </message>
    <message>
        <source>Values stay as they are.</source>
        <translation>Werte bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>The value of &quot;%1&quot; is a limit, too, now.</source>
        <translation>Der Wert von &quot;%1&quot; ist jetzt auch eine Grenze.</translation>
    </message>
    <message>
        <source>It only decides what is shown.</source>
        <translation>Das entscheidet nur, was angezeigt wird.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is another bit now, or inverted.</source>
        <translation>&quot;%1&quot; ist jetzt ein anderes Bit oder invertiert.</translation>
    </message>
    <message>
        <source>The bit %1 had the name &quot;%2&quot;.</source>
        <translation>Das Bit %1 hatte den Namen &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>The bit %1 has no name any more.</source>
        <translation>Das Bit %1 hat keinen Namen mehr.</translation>
    </message>
    <message>
        <source>The bit %1 or its name &quot;%2&quot; had a meaning already.</source>
        <translation>Das Bit %1 oder sein Name &quot;%2&quot; hatte schon eine Bedeutung.</translation>
    </message>
    <message>
        <source>Only bits without a name got one.</source>
        <translation>Nur Bits ohne Namen haben einen bekommen.</translation>
    </message>
    <message>
        <source>%1 is no longer a choice.</source>
        <translation>%1 ist kein Auswahlwert mehr.</translation>
    </message>
    <message>
        <source>%1 was &quot;%2&quot; and is &quot;%3&quot;.</source>
        <translation>%1 war &quot;%2&quot; und ist &quot;%3&quot;.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was %2 and is %3.</source>
        <translation>&quot;%1&quot; war %2 und ist %3.</translation>
    </message>
    <message>
        <source>other values</source>
        <translation>andere Werte</translation>
    </message>
    <message>
        <source>Only the choices are allowed now.</source>
        <translation>Jetzt sind nur noch die Auswahlwerte erlaubt.</translation>
    </message>
    <message>
        <source>Every choice is still there.</source>
        <translation>Jeden Auswahlwert gibt es noch.</translation>
    </message>
    <message>
        <source>%1, … (%2 in all)</source>
        <translation>%1, … (insgesamt %2)</translation>
    </message>
</context>
<context>
    <name>CDefinitionMerge</name>
    <message>
        <source>Only files of this library can be merged.</source>
        <translation>Nur Dateien dieser Bibliothek können zusammengeführt werden.</translation>
    </message>
</context>
<context>
    <name>CDomDoc</name>
    <message>
        <source>There is not enough memory to read the document.</source>
        <translation>Der Speicher reicht nicht aus, um das Dokument zu lesen.</translation>
    </message>
    <message>
        <source>The encoding &quot;%1&quot; is not supported for writing.</source>
        <translation>Die Zeichenkodierung &quot;%1&quot; wird beim Schreiben nicht unterstützt.</translation>
    </message>
    <message>
        <source>There is no document to write.</source>
        <translation>Es gibt kein Dokument, das geschrieben werden könnte.</translation>
    </message>
    <message>
        <source>The document has too many nodes, names or characters, so the file could not be read again.</source>
        <translation>Das Dokument hat zu viele Knoten, Namen oder Zeichen; die Datei könnte nicht wieder gelesen werden.</translation>
    </message>
    <message>
        <source>The elements are nested deeper than %1, so the file could not be read again.</source>
        <translation>Die Elemente sind tiefer als %1 verschachtelt; die Datei könnte nicht wieder gelesen werden.</translation>
    </message>
    <message>
        <source>The document is larger than 512 MiB, so the file could not be read again.</source>
        <translation>Das Dokument ist größer als 512 MiB; die Datei könnte nicht wieder gelesen werden.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be the name of an XML element.</source>
        <translation>&quot;%1&quot; kann nicht der Name eines XML-Elements sein.</translation>
    </message>
    <message>
        <source>%1: attribute &quot;%2&quot; holds the character %3, which XML cannot hold.</source>
        <translation>%1: Das Attribut &quot;%2&quot; enthält das Zeichen %3, das in XML nicht stehen kann.</translation>
    </message>
    <message>
        <source>%1: the text of &lt;%2&gt; holds the character %3, which XML cannot hold.</source>
        <translation>%1: Der Text von &lt;%2&gt; enthält das Zeichen %3, das in XML nicht stehen kann.</translation>
    </message>
    <message>
        <source>an unsigned 8-bit number (0 to 255)</source>
        <translation>eine 8-Bit-Zahl ohne Vorzeichen (0 bis 255)</translation>
    </message>
    <message>
        <source>an unsigned 32-bit number</source>
        <translation>eine 32-Bit-Zahl ohne Vorzeichen</translation>
    </message>
    <message>
        <source>a signed 32-bit number</source>
        <translation>eine 32-Bit-Zahl mit Vorzeichen</translation>
    </message>
    <message>
        <source>a signed 64-bit number</source>
        <translation>eine 64-Bit-Zahl mit Vorzeichen</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>attribute &quot;%1&quot; of &lt;%2&gt; is &quot;%3&quot;, not %4.</source>
        <translation>Das Attribut &quot;%1&quot; von &lt;%2&gt; ist &quot;%3&quot; und nicht %4.</translation>
    </message>
    <message>
        <source>attribute &quot;%1&quot; of &lt;%2&gt; is missing.</source>
        <translation>Das Attribut &quot;%1&quot; von &lt;%2&gt; fehlt.</translation>
    </message>
    <message>
        <source>&quot;true&quot; or &quot;false&quot;</source>
        <translation>&quot;true&quot; oder &quot;false&quot;</translation>
    </message>
    <message>
        <source>&lt;%1&gt; in &lt;%2&gt; is missing.</source>
        <translation>&lt;%1&gt; fehlt in &lt;%2&gt;.</translation>
    </message>
    <message>
        <source>&lt;%1&gt; is &quot;%2&quot;, not %3.</source>
        <translation>&lt;%1&gt; ist &quot;%2&quot; und nicht %3.</translation>
    </message>
</context>
<context>
    <name>CMigrationCheck</name>
    <message>
        <source>the Head comment of the old definitions does not name the release &quot;%1&quot;.</source>
        <translation>der Kommentar im Head der alten Definitionen nennt die Ausgabe &quot;%1&quot; nicht.</translation>
    </message>
    <message>
        <source>the Head comment of the new definitions does not name the release &quot;%1&quot;.</source>
        <translation>der Kommentar im Head der neuen Definitionen nennt die Ausgabe &quot;%1&quot; nicht.</translation>
    </message>
    <message>
        <source>the rules cannot be saved: %1</source>
        <translation>die Regeln lassen sich nicht speichern: %1</translation>
    </message>
    <message>
        <source>the old definitions have no parameter of this name.</source>
        <translation>die alten Definitionen haben keinen Parameter dieses Namens.</translation>
    </message>
    <message>
        <source>it is dropped, and the new definitions still have it.</source>
        <translation>er entfällt, und die neuen Definitionen haben ihn noch.</translation>
    </message>
    <message>
        <source>the new definitions have no parameter of this name; give it a new name, or drop it.</source>
        <translation>die neuen Definitionen haben keinen Parameter dieses Namens; er braucht einen neuen Namen oder muss entfallen.</translation>
    </message>
    <message>
        <source>the new definitions have no &quot;%1&quot;.</source>
        <translation>die neuen Definitionen haben kein &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; becomes &quot;%2&quot;, too.</source>
        <translation>auch &quot;%1&quot; wird zu &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>the old definitions have &quot;%1&quot; already, which no rule drops or renames.</source>
        <translation>die alten Definitionen haben schon &quot;%1&quot;, und keine Regel entfernt es oder benennt es um.</translation>
    </message>
    <message>
        <source>its new id is %1, not %2.</source>
        <translation>seine neue ID ist %1, nicht %2.</translation>
    </message>
    <message>
        <source>its new id is %1, and values keep the old one, %2.</source>
        <translation>seine neue ID ist %1, und Werte behalten die alte, %2.</translation>
    </message>
    <message>
        <source>values of the type %1 are no numbers that could be converted.</source>
        <translation>Werte des Typs %1 sind keine Zahlen, die sich umrechnen ließen.</translation>
    </message>
    <message>
        <source>the new definition does not allow the value &quot;%1&quot;: %2</source>
        <translation>die neue Definition lässt den Wert &quot;%1&quot; nicht zu: %2</translation>
    </message>
    <message>
        <source>the old definition does not allow %1: %2</source>
        <translation>die alte Definition lässt %1 nicht zu: %2</translation>
    </message>
    <message>
        <source>%1 is not a choice of the old definition.</source>
        <translation>%1 ist keine Auswahl der alten Definition.</translation>
    </message>
    <message>
        <source>the new definition does not allow %1: %2</source>
        <translation>die neue Definition lässt %1 nicht zu: %2</translation>
    </message>
    <message>
        <source>%1 is not a choice of the new definition.</source>
        <translation>%1 ist keine Auswahl der neuen Definition.</translation>
    </message>
    <message>
        <source>%1 and %2 both become %3.</source>
        <translation>%1 und %2 werden beide zu %3.</translation>
    </message>
    <message>
        <source>values of the type %1 have no bits.</source>
        <translation>Werte des Typs %1 haben keine Bits.</translation>
    </message>
    <message>
        <source>the old type %1 has no bit %2.</source>
        <translation>der alte Typ %1 hat kein Bit %2.</translation>
    </message>
    <message>
        <source>the bit %1 has no name in the old definition.</source>
        <translation>das Bit %1 hat in der alten Definition keinen Namen.</translation>
    </message>
    <message>
        <source>the new type %1 has no bit %2.</source>
        <translation>der neue Typ %1 hat kein Bit %2.</translation>
    </message>
    <message>
        <source>the bit %1 has no name in the new definition.</source>
        <translation>das Bit %1 hat in der neuen Definition keinen Namen.</translation>
    </message>
    <message>
        <source>the bits %1 and %2 both become %3.</source>
        <translation>die Bits %1 und %2 werden beide zu %3.</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: %2</source>
        <translation>&quot;%1&quot;: %2</translation>
    </message>
    <message>
        <source>the new definitions do not have it, and no rule is about it.</source>
        <translation>die neuen Definitionen haben ihn nicht, und keine Regel handelt von ihm.</translation>
    </message>
    <message>
        <source>its meaning changed, and no rule is about it (%1): %2</source>
        <translation>seine Bedeutung hat sich geändert, und keine Regel handelt davon (%1): %2</translation>
    </message>
    <message>
        <source>its meaning changed, and the rule has no %3 for that (%1): %2</source>
        <translation>seine Bedeutung hat sich geändert, und die Regel hat dafür kein %3 (%1): %2</translation>
    </message>
    <message>
        <source>nothing tells a migrated file from one that is not; give &lt;To&gt; a version.</source>
        <translation>nichts unterscheidet eine migrierte Datei von einer, die es nicht ist; geben Sie &lt;To&gt; eine version.</translation>
    </message>
</context>
<context>
    <name>CMigrationFile</name>
    <message>
        <source>File &quot;%1&quot;: %2</source>
        <translation>Datei &quot;%1&quot;: %2</translation>
    </message>
    <message>
        <source>there is a rule for this group already.</source>
        <translation>für diese Gruppe gibt es schon eine Regel.</translation>
    </message>
    <message>
        <source>there is a rule for this parameter already.</source>
        <translation>für diesen Parameter gibt es schon eine Regel.</translation>
    </message>
    <message>
        <source>a table begins with &lt;%1&gt; and &lt;%2&gt;; &lt;%3&gt; is missing.</source>
        <translation>eine Tabelle beginnt mit &lt;%1&gt; und &lt;%2&gt;; &lt;%3&gt; fehlt.</translation>
    </message>
    <message>
        <source>a version such as &quot;1.1&quot;</source>
        <translation>eine Version wie &quot;1.1&quot;</translation>
    </message>
    <message>
        <source>the path of a group</source>
        <translation>der Pfad einer Gruppe</translation>
    </message>
    <message>
        <source>the name of a group</source>
        <translation>der Name einer Gruppe</translation>
    </message>
    <message>
        <source>a name</source>
        <translation>ein Name</translation>
    </message>
    <message>
        <source>an id</source>
        <translation>eine ID</translation>
    </message>
    <message>
        <source>a factor of 0 loses every value.</source>
        <translation>ein Faktor 0 verliert jeden Wert.</translation>
    </message>
    <message>
        <source>one of: %1</source>
        <translation>eines von: %1</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>eine Zahl</translation>
    </message>
    <message>
        <source>&lt;%1&gt; leads to where it begins.</source>
        <translation>&lt;%1&gt; führt dorthin, wo es beginnt.</translation>
    </message>
    <message>
        <source>&lt;%1&gt; and &lt;%2&gt; cannot stand in one rule.</source>
        <translation>&lt;%1&gt; und &lt;%2&gt; können nicht in einer Regel stehen.</translation>
    </message>
    <message>
        <source>the rule says nothing.</source>
        <translation>die Regel sagt nichts.</translation>
    </message>
    <message>
        <source>what is dropped gets no new name, id or sub-device.</source>
        <translation>was entfällt, bekommt keinen neuen Namen, keine ID und kein Subdevice.</translation>
    </message>
    <message>
        <source>&lt;%1&gt; from %2 stands twice.</source>
        <translation>&lt;%1&gt; von %2 steht zweimal da.</translation>
    </message>
    <message>
        <source>&lt;%1&gt; holds the text &quot;%2&quot;, where none belongs.</source>
        <translation>&lt;%1&gt; enthält den Text &quot;%2&quot;, wo keiner hingehört.</translation>
    </message>
    <message>
        <source>attribute &quot;%1&quot; of &lt;%2&gt; is not known.</source>
        <translation>das Attribut &quot;%1&quot; von &lt;%2&gt; ist nicht bekannt.</translation>
    </message>
    <message>
        <source>&lt;%1&gt; lacks its text.</source>
        <translation>&lt;%1&gt; fehlt der Text.</translation>
    </message>
    <message>
        <source>attribute &quot;%1&quot; of &lt;%2&gt; is missing.</source>
        <translation>das Attribut &quot;%1&quot; von &lt;%2&gt; fehlt.</translation>
    </message>
    <message>
        <source>a decimal number or a fraction of two, such as &quot;1/60&quot;</source>
        <translation>eine Dezimalzahl oder ein Bruch aus zweien wie &quot;1/60&quot;</translation>
    </message>
    <message>
        <source>the position of a bit, 0 to 63</source>
        <translation>die Position eines Bits, 0 bis 63</translation>
    </message>
    <message>
        <source>attribute &quot;%1&quot; of &lt;%2&gt; is &quot;%3&quot;, not %4.</source>
        <translation>das Attribut &quot;%1&quot; von &lt;%2&gt; ist &quot;%3&quot;, nicht %4.</translation>
    </message>
    <message>
        <source>&lt;%1&gt; is not known in &lt;%2&gt;.</source>
        <translation>&lt;%1&gt; ist in &lt;%2&gt; nicht bekannt.</translation>
    </message>
    <message>
        <source>&lt;%1&gt; stands twice.</source>
        <translation>&lt;%1&gt; steht zweimal da.</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>Line %1, &quot;%2&quot;: %3</source>
        <translation>Zeile %1, &quot;%2&quot;: %3</translation>
    </message>
</context>
<context>
    <name>CMigrationTable</name>
    <message>
        <source>Name and hint are others under this id: is it the same parameter?</source>
        <translation>Name und Hinweis sind unter dieser ID andere: Ist es derselbe Parameter?</translation>
    </message>
    <message>
        <source>It has another name, and may count in another unit.</source>
        <translation>Der Name ist ein anderer, und die Einheit vielleicht auch.</translation>
    </message>
    <message>
        <source>Likely, in place of the question: its limits, or its default, changed by the factor %1.</source>
        <translation>Wahrscheinlich, anstelle der Frage: Die Grenzen oder die Vorgabe haben sich um den Faktor %1 geändert.</translation>
    </message>
    <message>
        <source>It is no longer defined: does another parameter take its value, or is it dropped?</source>
        <translation>Der Parameter ist nicht mehr definiert: Übernimmt ein anderer den Wert, oder fällt er weg?</translation>
    </message>
    <message>
        <source>Likely, in place of the question: type and unit are the same, and hint or name are alike.</source>
        <translation>Wahrscheinlich, anstelle der Frage: Typ und Einheit sind gleich, Hinweis oder Name ähnlich.</translation>
    </message>
    <message>
        <source>Likely, beside an answer to the question: these have the same names as before.</source>
        <translation>Wahrscheinlich, neben einer Antwort auf die Frage: Diese haben dieselben Namen wie vorher.</translation>
    </message>
</context>
<context>
    <name>CParamBaseFile</name>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
</context>
<context>
    <name>CParamDefFile</name>
    <message>
        <source>Parameter (Id=%1) -&gt; </source>
        <translation>Parameter (Id=%1) -&gt; </translation>
    </message>
    <message>
        <source>File &quot;%1&quot; parse error: </source>
        <translation>Datei &quot;%1&quot;: Fehler beim Lesen: </translation>
    </message>
    <message>
        <source>There is no data section !</source>
        <translation>Der Datenabschnitt fehlt!</translation>
    </message>
    <message>
        <source>Parameter (Id=%1) -&gt; Type &quot;%2&quot; is not valid.</source>
        <translation>Parameter (Id=%1) -&gt; Der Typ &quot;%2&quot; ist ungültig.</translation>
    </message>
    <message>
        <source>Parameter (Id=%1, Tag &lt;%2&gt;) -&gt; &quot;%3&quot; is not a valid u32 value.</source>
        <translation>Parameter (Id=%1, Element &lt;%2&gt;) -&gt; &quot;%3&quot; ist kein gültiger u32-Wert.</translation>
    </message>
    <message>
        <source>Parameter (Id=%1) -&gt; Section=&lt;%2&gt;, </source>
        <translation>Parameter (Id=%1) -&gt; Abschnitt=&lt;%2&gt;, </translation>
    </message>
    <message>
        <source>Tag &lt;%1&gt; Attribute &quot;%2&quot; -&gt; %3 exceeds the valid bit position range (0...%4).</source>
        <translation>Element &lt;%1&gt;, Attribut &quot;%2&quot; -&gt; %3 liegt außerhalb der gültigen Bitpositionen (0...%4).</translation>
    </message>
    <message>
        <source>Threre is alredy a Parameter with name &quot;%1&quot;.</source>
        <translation>Es gibt bereits einen Parameter mit dem Namen &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Threre is alredy a Parameter with name = &quot;%1&quot;.</source>
        <translation>Es gibt bereits einen Parameter mit dem Namen &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Parameter (Id=%1, Section=&lt;%2&gt;) -&gt; </source>
        <translation>Parameter (Id=%1, Abschnitt=&lt;%2&gt;) -&gt; </translation>
    </message>
    <message>
        <source>Two definitions have the name &quot;%1&quot;.</source>
        <translation>Zwei Definitionen haben den Namen &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>The definitions &quot;%1&quot; and &quot;%2&quot; have the same id %3.</source>
        <translation>Die Definitionen &quot;%1&quot; und &quot;%2&quot; haben dieselbe ID %3.</translation>
    </message>
    <message>
        <source>Parameter &apos;%1&apos; -&gt; Minimum exceeds Maximum.</source>
        <translation>Parameter &apos;%1&apos; -&gt; Das Minimum ist größer als das Maximum.</translation>
    </message>
    <message>
        <source>Parameter (Id=%1) -&gt; The name &quot;%2&quot; is reserved.</source>
        <translation>Parameter (Id=%1) -&gt; Der Name &quot;%2&quot; ist reserviert.</translation>
    </message>
</context>
<context>
    <name>CParamLineIndex</name>
    <message>
        <source>The file is neither a definition file nor a value file.</source>
        <translation>Die Datei ist weder eine Definitionsdatei noch eine Wertedatei.</translation>
    </message>
</context>
<context>
    <name>CParamValueFile</name>
    <message>
        <source>Parameter definition file &quot;%1&quot; loaded successfully.</source>
        <translation>Die Parameter-Definitionsdatei &quot;%1&quot; wurde geladen.</translation>
    </message>
    <message>
        <source>Parameter file &quot;%1&quot; loaded successfully. There are parameters for %2 hardware id(s).</source>
        <translation>Die Parameterdatei &quot;%1&quot; wurde geladen. Sie enthält Parameter für %2 Hardware-ID(s).</translation>
    </message>
    <message>
        <source>Parameter file &quot;%1&quot; loaded successfully. There are parameters for %2 subdevice(s).</source>
        <translation>Die Parameterdatei &quot;%1&quot; wurde geladen. Sie enthält Parameter für %2 Subdevice(s).</translation>
    </message>
    <message>
        <source>File &quot;%1&quot; parse error: </source>
        <translation>Datei &quot;%1&quot;: Fehler beim Lesen: </translation>
    </message>
    <message>
        <source>File &quot;%1&quot; load error: </source>
        <translation>Datei &quot;%1&quot;: Fehler beim Laden: </translation>
    </message>
    <message>
        <source>The hardware ids &quot;%1&quot; and &quot;%2&quot; differ only in blanks around them.</source>
        <translation>Die Hardware-IDs &quot;%1&quot; und &quot;%2&quot; unterscheiden sich nur durch Leerzeichen am Anfang oder Ende.</translation>
    </message>
    <message>
        <source>There is no data section !</source>
        <translation>Der Datenabschnitt fehlt!</translation>
    </message>
    <message>
        <source>There are multiple data sections with hardware id %1!</source>
        <translation>Es gibt mehrere Datenabschnitte mit der Hardware-ID %1!</translation>
    </message>
    <message>
        <source>There are multiple subdevices with subid %1!</source>
        <translation>Es gibt mehrere Subdevices mit der ID %1!</translation>
    </message>
    <message>
        <source>Parametes successfully read from sub device %1.</source>
        <translation>Parameter von Subdevice %1 erfolgreich gelesen.</translation>
    </message>
    <message>
        <source>The parameter file does not contain sub devices.</source>
        <translation>Die Parameterdatei enthält keine Subdevices.</translation>
    </message>
    <message>
        <source>Parametes successfully read from first sub device as subDevId %1.</source>
        <translation>Parameter des ersten Subdevice erfolgreich als Subdevice %1 gelesen.</translation>
    </message>
    <message>
        <source>A parameter with this name alrady exists !</source>
        <translation>Es gibt bereits einen Parameter mit diesem Namen!</translation>
    </message>
    <message>
        <source>Parameter (name=%1) -&gt; </source>
        <translation>Parameter (Name=%1) -&gt; </translation>
    </message>
    <message>
        <source>Line %1: attribute &quot;%2&quot; of &lt;%3&gt; is %4, which is not an id.</source>
        <translation>Zeile %1: Das Attribut &quot;%2&quot; von &lt;%3&gt; ist %4 und damit keine ID.</translation>
    </message>
    <message>
        <source>Line %1: the name &quot;%2&quot; is reserved.</source>
        <translation>Zeile %1: Der Name &quot;%2&quot; ist reserviert.</translation>
    </message>
    <message>
        <source>The name &quot;%1&quot; replaces &quot;%2&quot; of line %3: all hardware ids share the names of sub-devices.</source>
        <translation>Der Name &quot;%1&quot; ersetzt &quot;%2&quot; aus Zeile %3: Alle Hardware-IDs haben dieselben Namen der Subdevices.</translation>
    </message>
    <message>
        <source>The type &quot;%1&quot; replaces &quot;%2&quot; of line %3: all hardware ids share the types of sub-devices.</source>
        <translation>Der Typ &quot;%1&quot; ersetzt &quot;%2&quot; aus Zeile %3: Alle Hardware-IDs haben dieselben Typen der Subdevices.</translation>
    </message>
    <message>
        <source>Line %1, sub device %2:</source>
        <translation>Zeile %1, Subdevice %2:</translation>
    </message>
</context>
<context>
    <name>CParamValueRules</name>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number; write decimals after a point: %2.</source>
        <translation>&quot;%1&quot; ist keine Zahl; Nachkommastellen nach einem Punkt schreiben: %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number of the type %2.</source>
        <translation>&quot;%1&quot; ist keine Zahl vom Typ %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number of the type %2 (%3).</source>
        <translation>&quot;%1&quot; ist keine Zahl vom Typ %2 (%3).</translation>
    </message>
    <message>
        <source>%1 is not one of the choices.</source>
        <translation>%1 ist keiner der Auswahlwerte.</translation>
    </message>
    <message>
        <source>%1 is not one of the radio buttons.</source>
        <translation>%1 ist keines der Optionsfelder.</translation>
    </message>
    <message>
        <source>%1 is not one of the check box&apos;s states.</source>
        <translation>%1 ist keiner der Zustände des Kontrollkästchens.</translation>
    </message>
    <message>
        <source>%1 is below the minimum %2.</source>
        <translation>%1 ist kleiner als das Minimum %2.</translation>
    </message>
    <message>
        <source>%1 is below %2, the value of &quot;%3&quot;.</source>
        <translation>%1 ist kleiner als %2, der Wert von &quot;%3&quot;.</translation>
    </message>
    <message>
        <source>%1 is above the maximum %2.</source>
        <translation>%1 ist größer als das Maximum %2.</translation>
    </message>
    <message>
        <source>%1 is above %2, the value of &quot;%3&quot;.</source>
        <translation>%1 ist größer als %2, der Wert von &quot;%3&quot;.</translation>
    </message>
    <message>
        <source>%1 cannot be compared with the limits.</source>
        <translation>%1 kann nicht mit den Grenzen verglichen werden.</translation>
    </message>
    <message>
        <source>Bits are set that have no name: %1.</source>
        <translation>Es sind Bits gesetzt, die keinen Namen haben: %1.</translation>
    </message>
</context>
<context>
    <name>CParamValueText</name>
    <message>
        <source>checked</source>
        <translation>gesetzt</translation>
    </message>
    <message>
        <source>unchecked</source>
        <translation>nicht gesetzt</translation>
    </message>
    <message>
        <source>undefined</source>
        <translation>unbestimmt</translation>
    </message>
</context>
<context>
    <name>CParameterFileChecker</name>
    <message>
        <source>The minimum %1 is above the maximum %2.</source>
        <translation>Das Minimum %1 ist größer als das Maximum %2.</translation>
    </message>
    <message>
        <source>Two states of the check box have the same value.</source>
        <translation>Zwei Zustände des Kontrollkästchens haben denselben Wert.</translation>
    </message>
    <message>
        <source>The id %1 is already used by &quot;%2&quot;.</source>
        <translation>Die ID %1 wird bereits von &quot;%2&quot; verwendet.</translation>
    </message>
    <message>
        <source>The limit &quot;%1&quot; is not a number of the type %2 that can be compared.</source>
        <translation>Die Grenze &quot;%1&quot; ist keine vergleichbare Zahl vom Typ %2.</translation>
    </message>
    <message>
        <source>The limit parameter %1 is not defined.</source>
        <translation>Der Grenzparameter %1 ist nicht definiert.</translation>
    </message>
    <message>
        <source>The limit parameter &quot;%1&quot; is not a number.</source>
        <translation>Der Grenzparameter &quot;%1&quot; ist keine Zahl.</translation>
    </message>
    <message>
        <source>The parameter %1, on which the visibility depends, is not defined.</source>
        <translation>Der Parameter %1, von dem die Sichtbarkeit abhängt, ist nicht definiert.</translation>
    </message>
    <message>
        <source>The unit %1 is not defined.</source>
        <translation>Die Einheit %1 ist nicht definiert.</translation>
    </message>
    <message>
        <source>Default: %1</source>
        <translation>Vorgabewert: %1</translation>
    </message>
    <message>
        <source>Another choice has the value %1 of &quot;%2&quot;, too.</source>
        <translation>Ein weiterer Auswahlwert hat den Wert %1 von &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>Another choice than %1 has the name &quot;%2&quot;, too.</source>
        <translation>Ein weiterer Auswahlwert als %1 hat den Namen &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>The choice %1 is not a number of the type %2.</source>
        <translation>Der Auswahlwert %1 ist keine Zahl vom Typ %2.</translation>
    </message>
    <message>
        <source>The bit %1 has another name than &quot;%2&quot;, too.</source>
        <translation>Das Bit %1 hat noch einen anderen Namen als &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>The type %1 has no bit %2.</source>
        <translation>Der Typ %1 hat kein Bit %2.</translation>
    </message>
    <message>
        <source>The parameter is not defined.</source>
        <translation>Der Parameter ist nicht definiert.</translation>
    </message>
    <message>
        <source>The parameter is not defined; the definition of its id %1 has the name &quot;%2&quot;.</source>
        <translation>Der Parameter ist nicht definiert; die Definition seiner ID %1 hat den Namen &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>The parameter has the id %1, its definition has %2.</source>
        <translation>Der Parameter hat die ID %1, seine Definition %2.</translation>
    </message>
    <message>
        <source>The parameter is defined, but no sub-device has it.</source>
        <translation>Der Parameter ist definiert, aber kein Subdevice hat ihn.</translation>
    </message>
</context>
<context>
    <name>CParameterFileErrorHandler</name>
    <message>
        <source>Hardware id &apos;%1&apos; is wrong. Expected was &apos;%2&apos;.</source>
        <translation>Die Hardware-ID &apos;%1&apos; ist falsch. Erwartet wurde &apos;%2&apos;.</translation>
    </message>
    <message>
        <source>There is no matching hardware id for &apos;%1&apos;.</source>
        <translation>Es gibt keine passende Hardware-ID für &apos;%1&apos;.</translation>
    </message>
</context>
<context>
    <name>CParameterFileImpl</name>
    <message>
        <source>The name &quot;%1&quot; is reserved.</source>
        <translation>Der Name &quot;%1&quot; ist reserviert.</translation>
    </message>
    <message>
        <source>Loading parameter definition file failed</source>
        <translation>Das Laden der Parameter-Definitionsdatei ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>Saving parameter definition file failed</source>
        <translation>Das Speichern der Parameter-Definitionsdatei ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>Loading parameter value file failed</source>
        <translation>Das Laden der Parameter-Wertedatei ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>Saving parameter value file failed</source>
        <translation>Das Speichern der Parameter-Wertedatei ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>Saving parameters for hardware ID &quot;%1&quot; failed because there are no parameters.</source>
        <translation>Die Parameter der Hardware-ID &quot;%1&quot; wurden nicht gespeichert, weil es keine gibt.</translation>
    </message>
    <message>
        <source>importParamFile() Loading parameter value file failed</source>
        <translation>importParamFile(): Das Laden der Parameter-Wertedatei ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>Hardware id &quot;%1&quot; does not exist. Select failed.</source>
        <translation>Die Hardware-ID &quot;%1&quot; gibt es nicht. Auswahl fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Hardware id &quot;%1&quot; already exists. Add failed.</source>
        <translation>Die Hardware-ID &quot;%1&quot; gibt es bereits. Hinzufügen fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Cannot remove the active hardware id &quot;%1&quot;.</source>
        <translation>Die aktive Hardware-ID &quot;%1&quot; kann nicht entfernt werden.</translation>
    </message>
    <message>
        <source>Hardware id &quot;%1&quot; does not exist. Remove failed.</source>
        <translation>Die Hardware-ID &quot;%1&quot; gibt es nicht. Entfernen fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Hardware id &quot;%1&quot; does not exist. Rename failed.</source>
        <translation>Die Hardware-ID &quot;%1&quot; gibt es nicht. Umbenennen fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Hardware id &quot;%1&quot; already exists. Rename failed.</source>
        <translation>Die Hardware-ID &quot;%1&quot; gibt es bereits. Umbenennen fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Source hardware id &quot;%1&quot; does not exist. Clone failed.</source>
        <translation>Die Quell-Hardware-ID &quot;%1&quot; gibt es nicht. Kopieren fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Hardware id &quot;%1&quot; already exists. Clone failed.</source>
        <translation>Die Hardware-ID &quot;%1&quot; gibt es bereits. Kopieren fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Other instance is not from type CParameterFileBaseImpl. Clone failed.</source>
        <translation>Das andere Objekt ist nicht vom Typ CParameterFileBaseImpl. Kopieren fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Other instance does not contain hardware id &quot;%1&quot;. Clone failed.</source>
        <translation>Das andere Objekt enthält die Hardware-ID &quot;%1&quot; nicht. Kopieren fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Other instance is not from type CParameterFileBaseImpl. Import failed.</source>
        <translation>Das andere Objekt ist nicht vom Typ CParameterFileBaseImpl. Import fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Other instance does not contain source hardware id &quot;%1&quot;. Import failed.</source>
        <translation>Das andere Objekt enthält die Quell-Hardware-ID &quot;%1&quot; nicht. Import fehlgeschlagen.</translation>
    </message>
    <message>
        <source>The parameter file does not contain any hardware ID.</source>
        <translation>Die Parameterdatei enthält keine Hardware-ID.</translation>
    </message>
    <message>
        <source>Destination hardware id &quot;%1&quot; does not exist. Import failed.</source>
        <translation>Die Ziel-Hardware-ID &quot;%1&quot; gibt es nicht. Import fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Sub device %1 does not exist. Copying it to sub device %2 failed.</source>
        <translation>Das Subdevice %1 gibt es nicht. Es konnte nicht in das Subdevice %2 kopiert werden.</translation>
    </message>
    <message>
        <source>Sub device %1 cannot be copied to itself.</source>
        <translation>Das Subdevice %1 kann nicht in sich selbst kopiert werden.</translation>
    </message>
    <message>
        <source>addGroup(&quot;%1&quot;) failed because the given parent is NULL!</source>
        <translation>addGroup(&quot;%1&quot;) ist fehlgeschlagen, weil die übergeordnete Gruppe NULL ist!</translation>
    </message>
    <message>
        <source>SubDevice %1 : Adding group &quot;%2&quot; to parent &quot;%3&quot; failed because there is alrady a parameter with the same name!</source>
        <translation>Subdevice %1: Die Gruppe &quot;%2&quot; kann nicht zu &quot;%3&quot; hinzugefügt werden, weil es dort bereits einen Parameter mit diesem Namen gibt!</translation>
    </message>
    <message>
        <source>A group needs a name.</source>
        <translation>Eine Gruppe braucht einen Namen.</translation>
    </message>
    <message>
        <source>SubDevice %1 : Adding group &quot;%2&quot; failed because groups can be nested %3 deep at most!</source>
        <translation>Subdevice %1: Die Gruppe &quot;%2&quot; kann nicht hinzugefügt werden, weil Gruppen höchstens %3 tief verschachtelt werden können!</translation>
    </message>
    <message>
        <source>Adding &quot;%1&quot; failed because the given parent is not a group of the active hardware id!</source>
        <translation>&quot;%1&quot; kann nicht hinzugefügt werden, weil der übergeordnete Knoten keine Gruppe der aktiven Hardware-ID ist!</translation>
    </message>
    <message>
        <source>addParameter(&quot;%1&quot;) failed because the given parent is NULL!</source>
        <translation>addParameter(&quot;%1&quot;) ist fehlgeschlagen, weil die übergeordnete Gruppe NULL ist!</translation>
    </message>
    <message>
        <source>SubDevice %1 : Adding parameter &quot;%2&quot; failed because the parameter definition is missing!</source>
        <translation>Subdevice %1: Der Parameter &quot;%2&quot; kann nicht hinzugefügt werden, weil seine Definition fehlt!</translation>
    </message>
    <message>
        <source>SubDevice %1 : Adding parameter &quot;%2&quot; failed because there is alrady a parameter with the same name!</source>
        <translation>Subdevice %1: Der Parameter &quot;%2&quot; kann nicht hinzugefügt werden, weil es bereits einen Parameter mit diesem Namen gibt!</translation>
    </message>
    <message>
        <source>Deleting a node failed because it does not belong to the active hardware id!</source>
        <translation>Ein Knoten kann nicht gelöscht werden, weil er nicht zur aktiven Hardware-ID gehört!</translation>
    </message>
    <message>
        <source>SubDevice %1 : Node &quot;%2&quot; is the root node and cannot be deleted!</source>
        <translation>Subdevice %1: Der Knoten &quot;%2&quot; ist die Wurzel und kann nicht gelöscht werden!</translation>
    </message>
    <message>
        <source>There is no parameter defined with name &quot;%1&quot;.</source>
        <translation>Es ist kein Parameter mit dem Namen &quot;%1&quot; definiert.</translation>
    </message>
    <message>
        <source>Parameter file idByName() failed</source>
        <translation>Parameterdatei: idByName() ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>There is no parameter defined with id %1.</source>
        <translation>Es ist kein Parameter mit der ID %1 definiert.</translation>
    </message>
    <message>
        <source>Parameter file nameById() failed</source>
        <translation>Parameterdatei: nameById() ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>There is no parameter defined with name %1.</source>
        <translation>Es ist kein Parameter mit dem Namen %1 definiert.</translation>
    </message>
    <message>
        <source>Parameter file paramDefPtr() failed</source>
        <translation>Parameterdatei: paramDefPtr() ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>setParamValue() failed because there is no parameter list for hardware id &quot;%1&quot; and sub device %2</source>
        <translation>setParamValue() ist fehlgeschlagen, weil es keine Parameterliste für die Hardware-ID &quot;%1&quot; und das Subdevice %2 gibt</translation>
    </message>
    <message>
        <source>setParamValue() failed because there is no parameter value for sub device %1 and name &quot;%2&quot;</source>
        <translation>setParamValue() ist fehlgeschlagen, weil es im Subdevice %1 keinen Wert mit dem Namen &quot;%2&quot; gibt</translation>
    </message>
    <message>
        <source>Parameter file addDef() failed</source>
        <translation>Parameterdatei: addDef() ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>A parameter definition needs a name.</source>
        <translation>Eine Parameterdefinition braucht einen Namen.</translation>
    </message>
    <message>
        <source>There is already a parameter defined with name &quot;%1&quot;.</source>
        <translation>Es ist bereits ein Parameter mit dem Namen &quot;%1&quot; definiert.</translation>
    </message>
    <message>
        <source>Parameter &quot;%1&quot; cannot have the id %2, which belongs to parameter &quot;%3&quot;.</source>
        <translation>Der Parameter &quot;%1&quot; kann die ID %2 nicht bekommen; sie gehört zum Parameter &quot;%3&quot;.</translation>
    </message>
    <message>
        <source>Definition is missing.</source>
        <translation>Die Definition fehlt.</translation>
    </message>
    <message>
        <source>Definition of parameter &quot;%1&quot; not found. Import failed.</source>
        <translation>Die Definition des Parameters &quot;%1&quot; wurde nicht gefunden. Import fehlgeschlagen.</translation>
    </message>
    <message>
        <source>Default value is used.</source>
        <translation>Der Vorgabewert wird verwendet.</translation>
    </message>
    <message>
        <source>The parameter is not defined and is skipped.</source>
        <translation>Der Parameter ist nicht definiert und wird übersprungen.</translation>
    </message>
    <message>
        <source>%1 of sub device %2:</source>
        <translation>%1 von Subdevice %2:</translation>
    </message>
    <message>
        <source>Hardware id &quot;%1&quot; does not exist.</source>
        <translation>Die Hardware-ID &quot;%1&quot; gibt es nicht.</translation>
    </message>
    <message>
        <source>Adding &quot;%1&quot; failed because the given parent is not a group of the hardware id &quot;%2&quot;!</source>
        <translation>&quot;%1&quot; kann nicht hinzugefügt werden, weil der übergeordnete Knoten keine Gruppe der Hardware-ID &quot;%2&quot; ist!</translation>
    </message>
    <message>
        <source>Deleting a node failed because it does not belong to the hardware id &quot;%1&quot;!</source>
        <translation>Ein Knoten kann nicht gelöscht werden, weil er nicht zur Hardware-ID &quot;%1&quot; gehört!</translation>
    </message>
</context>
<context>
    <name>CParameterFileMerge</name>
    <message>
        <source>Only files of this library can be merged.</source>
        <translation>Nur Dateien dieser Bibliothek können zusammengeführt werden.</translation>
    </message>
    <message>
        <source>Files of different types cannot be merged.</source>
        <translation>Dateien verschiedener Typen können nicht zusammengeführt werden.</translation>
    </message>
</context>
<context>
    <name>CParameterFileModel</name>
    <message>
        <source>Only a sub-device or a group can hold groups and parameters.</source>
        <translation>Nur ein Subdevice oder eine Gruppe kann Gruppen und Parameter enthalten.</translation>
    </message>
    <message>
        <source>There are no such groups or parameters.</source>
        <translation>Solche Gruppen oder Parameter gibt es nicht.</translation>
    </message>
    <message>
        <source>Sub-device %1</source>
        <translation>Subdevice %1</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
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
        <source>Hint</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>The parameter is not defined.</source>
        <translation>Der Parameter ist nicht definiert.</translation>
    </message>
</context>
<context>
    <name>CParameterMigration</name>
    <message>
        <source>There is no sub-device of the type %1 to move it to.</source>
        <translation>Es gibt kein Untergerät vom Typ %1, in das er verschoben werden könnte.</translation>
    </message>
    <message>
        <source>Sub-device %1 has a parameter of the name &quot;%2&quot; already.</source>
        <translation>Das Untergerät %1 hat schon einen Parameter mit dem Namen &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>The sub-devices of the type %1 have different values.</source>
        <translation>Die Untergeräte vom Typ %1 haben verschiedene Werte.</translation>
    </message>
    <message>
        <source>your answer</source>
        <translation>Ihre Antwort</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>Only files of this library can be migrated.</source>
        <translation>Nur Dateien dieser Bibliothek können migriert werden.</translation>
    </message>
    <message>
        <source>There is no plan to carry out.</source>
        <translation>Es gibt keinen Plan, der auszuführen wäre.</translation>
    </message>
    <message>
        <source>Not everything comes back, such as &quot;%1&quot;; nothing was done.</source>
        <translation>Nicht alles kommt zurück, zum Beispiel &quot;%1&quot;; nichts wurde getan.</translation>
    </message>
    <message>
        <source>The old definitions do not have it, and no rule is about it.</source>
        <translation>Die alten Definitionen haben ihn nicht, und keine Regel handelt davon.</translation>
    </message>
    <message>
        <source>The new definitions do not have it, and no rule is about it.</source>
        <translation>Die neuen Definitionen haben ihn nicht, und keine Regel handelt davon.</translation>
    </message>
    <message>
        <source>moved from %1 to %2</source>
        <translation>von %1 nach %2 verschoben</translation>
    </message>
    <message>
        <source>renamed</source>
        <translation>umbenannt</translation>
    </message>
    <message>
        <source>id %1 became %2</source>
        <translation>Id %1 wurde %2</translation>
    </message>
    <message>
        <source>The new name is that of another group or parameter beside it.</source>
        <translation>Den neuen Namen hat schon eine Gruppe oder ein Parameter daneben.</translation>
    </message>
    <message>
        <source>There is another parameter of the name &quot;%1&quot; in the sub-device.</source>
        <translation>Das Untergerät hat einen anderen Parameter mit dem Namen &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>A human decided about it, so the value before is not known.</source>
        <translation>Ein Mensch hat darüber entschieden; der Wert davor ist nicht bekannt.</translation>
    </message>
    <message>
        <source>The table replaced it, so the value before is not known.</source>
        <translation>Die Tabelle hat ihn ersetzt; der Wert davor ist nicht bekannt.</translation>
    </message>
    <message>
        <source>divided by %1</source>
        <translation>geteilt durch %1</translation>
    </message>
    <message>
        <source>times %1</source>
        <translation>mal %1</translation>
    </message>
    <message>
        <source>minus %2, divided by %1</source>
        <translation>minus %2, geteilt durch %1</translation>
    </message>
    <message>
        <source>times %1, plus %2</source>
        <translation>mal %1, plus %2</translation>
    </message>
    <message>
        <source>another number of the choice</source>
        <translation>andere Nummer der Auswahl</translation>
    </message>
    <message>
        <source>bits at other places</source>
        <translation>Bits an anderen Stellen</translation>
    </message>
    <message>
        <source>the value of the table</source>
        <translation>der Wert der Tabelle</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number of the type %2 that can be converted.</source>
        <translation>&quot;%1&quot; ist keine Zahl des Typs %2, die sich umrechnen lässt.</translation>
    </message>
    <message>
        <source>%1 (%2) cannot be told exactly, and the rule does not round.</source>
        <translation>%1 (%2) lässt sich nicht genau schreiben, und die Regel rundet nicht.</translation>
    </message>
    <message>
        <source>%1, rounded</source>
        <translation>%1, gerundet</translation>
    </message>
</context>
<context>
    <name>CSettingsFileImpl</name>
    <message>
        <source>File &quot;%1&quot; parse error: </source>
        <translation>Datei &quot;%1&quot;: Fehler beim Lesen: </translation>
    </message>
    <message>
        <source>Bytearray parse error: </source>
        <translation>Bytefolge: Fehler beim Lesen: </translation>
    </message>
    <message>
        <source>Error while parsing TAG &lt;%1&gt; in line %2 : Unknown or missing attribute &quot;%3&quot;.</source>
        <translation>Fehler beim Lesen des Elements &lt;%1&gt; in Zeile %2: Unbekanntes oder fehlendes Attribut &quot;%3&quot;.</translation>
    </message>
    <message>
        <source>Error while parsing TAG &lt;%1&gt; in line %2 : Missing value Text.</source>
        <translation>Fehler beim Lesen des Elements &lt;%1&gt; in Zeile %2: Der Text des Wertes fehlt.</translation>
    </message>
    <message>
        <source>File &quot;%1&quot;: %2</source>
        <translation>Datei &quot;%1&quot;: %2</translation>
    </message>
    <message>
        <source>There are no settings to save.</source>
        <translation>Es gibt keine Einstellungen zu speichern.</translation>
    </message>
    <message>
        <source>The value &lt;%1&gt; of type %2 has no text, so it could not be loaded again.</source>
        <translation>Der Wert &lt;%1&gt; vom Typ %2 hat keinen Text und könnte nicht wieder geladen werden.</translation>
    </message>
</context>
<context>
    <name>CSimpleParamReaderImpl</name>
    <message>
        <source>Saving changed parameter definition file &quot;%1&quot;.</source>
        <translation>Die geänderte Parameter-Definitionsdatei &quot;%1&quot; wird gespeichert.</translation>
    </message>
    <message>
        <source>Saving changed parameter file &quot;%1&quot;.</source>
        <translation>Die geänderte Parameterdatei &quot;%1&quot; wird gespeichert.</translation>
    </message>
    <message>
        <source>File &quot;%1&quot; was not loaded and is not replaced: %2</source>
        <translation>Die Datei &quot;%1&quot; wurde nicht geladen und wird nicht ersetzt: %2</translation>
    </message>
    <message>
        <source>File &quot;%1&quot; was not loaded and is replaced. The old file is kept as &quot;%2&quot;.</source>
        <translation>Die Datei &quot;%1&quot; wurde nicht geladen und wird ersetzt. Die alte Datei bleibt als &quot;%2&quot; erhalten.</translation>
    </message>
    <message>
        <source>Error : Parameter &quot;%1&quot; does nor exist on subdevice %2.
</source>
        <translation>Fehler: Den Parameter &quot;%1&quot; gibt es im Subdevice %2 nicht.
</translation>
    </message>
    <message>
        <source>Error while reading parameter &quot;%1&quot; on subdevice %2 : Value &quot;%3&quot; is not an f64 value. Default Value %4 is taken.</source>
        <translation>Fehler beim Lesen des Parameters &quot;%1&quot; im Subdevice %2: Der Wert &quot;%3&quot; ist kein f64-Wert. Der Vorgabewert %4 wird verwendet.</translation>
    </message>
    <message>
        <source>Error : Parameter &quot;%1&quot; does not exist on subdevice %2.
</source>
        <translation>Fehler: Den Parameter &quot;%1&quot; gibt es im Subdevice %2 nicht.
</translation>
    </message>
    <message>
        <source>Error while reading parameter &quot;%1&quot; on subdevice %2 : Value &quot;%3&quot; is not an f64 value.
</source>
        <translation>Fehler beim Lesen des Parameters &quot;%1&quot; im Subdevice %2: Der Wert &quot;%3&quot; ist kein f64-Wert.
</translation>
    </message>
    <message>
        <source>Error : Cannot change the value of parameter &quot;%1&quot; on sub device %2 because the file is write protected !
</source>
        <translation>Fehler: Der Wert des Parameters &quot;%1&quot; im Subdevice %2 kann nicht geändert werden, weil die Datei schreibgeschützt ist!
</translation>
    </message>
    <message>
        <source>Error : Cannot delete Group &quot;%1&quot; on sub device %2 because the file is write protected !
</source>
        <translation>Fehler: Die Gruppe &quot;%1&quot; im Subdevice %2 kann nicht gelöscht werden, weil die Datei schreibgeschützt ist!
</translation>
    </message>
    <message>
        <source>Warning : Cannot delete Group &quot;%1&quot; on sub device %2 because the group does not exist !
</source>
        <translation>Warnung: Die Gruppe &quot;%1&quot; im Subdevice %2 kann nicht gelöscht werden, weil es sie nicht gibt!
</translation>
    </message>
    <message>
        <source>Error : Cannot delete parameter &quot;%1/%2&quot; on sub device %3 because the file is write protected !
</source>
        <translation>Fehler: Der Parameter &quot;%1/%2&quot; im Subdevice %3 kann nicht gelöscht werden, weil die Datei schreibgeschützt ist!
</translation>
    </message>
    <message>
        <source>Warning : Cannot delete parameter &quot;%1/%2&quot; on sub device %3 because the group does not exist !
</source>
        <translation>Warnung: Der Parameter &quot;%1/%2&quot; im Subdevice %3 kann nicht gelöscht werden, weil es die Gruppe nicht gibt!
</translation>
    </message>
    <message>
        <source>Warning : Cannot delete parameter &quot;%1/%2&quot; on sub device %3 because the parameter does not exist !
</source>
        <translation>Warnung: Der Parameter &quot;%1/%2&quot; im Subdevice %3 kann nicht gelöscht werden, weil es ihn nicht gibt!
</translation>
    </message>
    <message>
        <source>Error while reading parameter &quot;%1&quot; on subdevice %2 : Value &quot;%3&quot; is not an %4 value. Default Value %5 is taken.</source>
        <translation>Fehler beim Lesen des Parameters &quot;%1&quot; im Subdevice %2: Der Wert &quot;%3&quot; ist kein %4-Wert. Der Vorgabewert %5 wird verwendet.</translation>
    </message>
    <message>
        <source>Error while reading parameter &quot;%1&quot; on subdevice %2 : Value &quot;%3&quot; is not an %4 value.</source>
        <translation>Fehler beim Lesen des Parameters &quot;%1&quot; im Subdevice %2: Der Wert &quot;%3&quot; ist kein %4-Wert.</translation>
    </message>
    <message>
        <source>Definitions and values are not saved because &quot;%1&quot; and &quot;%2&quot; are the same file.</source>
        <translation>Definitionen und Werte werden nicht gespeichert, weil &quot;%1&quot; und &quot;%2&quot; dieselbe Datei sind.</translation>
    </message>
    <message>
        <source>Parameter file &quot;%1&quot; is not written because there are no values. Types and names of sub-devices are not saved.</source>
        <translation>Die Parameterdatei &quot;%1&quot; wird nicht geschrieben, weil es keine Werte gibt. Typen und Namen der Subdevices werden nicht gespeichert.</translation>
    </message>
</context>
<context>
    <name>CXmlAbstractLumoFile</name>
    <message>
        <source>File &quot;%1&quot;: %2</source>
        <translation>Datei &quot;%1&quot;: %2</translation>
    </message>
    <message>
        <source>Line %1: the root element is &lt;%2&gt;, expected is &lt;%3&gt;.</source>
        <translation>Zeile %1: Das Wurzelelement ist &lt;%2&gt;, erwartet wird &lt;%3&gt;.</translation>
    </message>
    <message>
        <source>Line %1: version &quot;%2&quot; is not compatible with the expected version &quot;%3&quot;.</source>
        <translation>Zeile %1: Die Version &quot;%2&quot; passt nicht zur erwarteten Version &quot;%3&quot;.</translation>
    </message>
</context>
<context>
    <name>CXmlParser</name>
    <message>
        <source>the document has too many nodes or different names</source>
        <translation>das Dokument hat zu viele Knoten oder verschiedene Namen</translation>
    </message>
    <message>
        <source>The document is larger than 512 MiB.</source>
        <translation>Das Dokument ist größer als 512 MiB.</translation>
    </message>
    <message>
        <source>The document is in UTF-16 but has an odd number of bytes.</source>
        <translation>Das Dokument ist in UTF-16, hat aber eine ungerade Zahl von Bytes.</translation>
    </message>
    <message>
        <source>unpaired surrogate</source>
        <translation>ein halbes Ersatzzeichenpaar steht allein</translation>
    </message>
    <message>
        <source>there is no root element</source>
        <translation>das Wurzelelement fehlt</translation>
    </message>
    <message>
        <source>the document ends before the tag &lt;%1&gt; of line %2 is closed</source>
        <translation>das Dokument endet, bevor das Element &lt;%1&gt; aus Zeile %2 geschlossen ist</translation>
    </message>
    <message>
        <source>the document ends within a tag, text or comment</source>
        <translation>das Dokument endet innerhalb eines Tags, Textes oder Kommentars</translation>
    </message>
    <message>
        <source>markup or character not allowed here</source>
        <translation>Auszeichnung oder Zeichen hier nicht erlaubt</translation>
    </message>
    <message>
        <source>the closing tag does not match the open tag &lt;%1&gt; of line %2</source>
        <translation>das schließende Tag passt nicht zum offenen Element &lt;%1&gt; aus Zeile %2</translation>
    </message>
    <message>
        <source>an attribute is repeated in one tag</source>
        <translation>ein Attribut kommt in einem Tag mehrmals vor</translation>
    </message>
    <message>
        <source>something follows the end of the root element</source>
        <translation>hinter dem Ende des Wurzelelements steht noch etwas</translation>
    </message>
    <message>
        <source>an entity is used that is not declared</source>
        <translation>eine Entität wird verwendet, die nicht deklariert ist</translation>
    </message>
    <message>
        <source>a character reference names a character that XML does not allow</source>
        <translation>ein Zeichenverweis nennt ein Zeichen, das XML nicht erlaubt</translation>
    </message>
    <message>
        <source>the encoding that the document declares is not supported</source>
        <translation>die Zeichenkodierung, die das Dokument angibt, wird nicht unterstützt</translation>
    </message>
    <message>
        <source>the document is not in the encoding that it declares</source>
        <translation>das Dokument hat nicht die Zeichenkodierung, die es angibt</translation>
    </message>
    <message>
        <source>the XML declaration is not at the start of the document</source>
        <translation>die XML-Deklaration steht nicht am Anfang des Dokuments</translation>
    </message>
    <message>
        <source>the XML declaration is not well-formed</source>
        <translation>die XML-Deklaration ist nicht wohlgeformt</translation>
    </message>
    <message>
        <source>a document type declaration with declarations of its own is not allowed</source>
        <translation>eine Dokumenttyp-Deklaration mit eigenen Deklarationen ist nicht erlaubt</translation>
    </message>
    <message>
        <source>there is more than one document type declaration</source>
        <translation>es gibt mehr als eine Dokumenttyp-Deklaration</translation>
    </message>
    <message>
        <source>the elements are nested deeper than %1</source>
        <translation>die Elemente sind tiefer als %1 verschachtelt</translation>
    </message>
    <message>
        <source>a tag has more than %1 attributes</source>
        <translation>ein Tag hat mehr als %1 Attribute</translation>
    </message>
    <message>
        <source>Line %1: %2.</source>
        <translation>Zeile %1: %2.</translation>
    </message>
</context>
<context>
    <name>SMergeConflict</name>
    <message>
        <source>Added as &quot;%1&quot; in ours, and as &quot;%2&quot; in theirs.</source>
        <translation>Auf der eigenen Seite als &quot;%1&quot; hinzugefügt, auf der fremden als &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>Removed in ours, changed in theirs.</source>
        <translation>Auf der eigenen Seite entfernt, auf der fremden geändert.</translation>
    </message>
    <message>
        <source>Changed in ours, removed in theirs.</source>
        <translation>Auf der eigenen Seite geändert, auf der fremden entfernt.</translation>
    </message>
    <message>
        <source>Changed from &quot;%1&quot; to &quot;%2&quot; in ours, and to &quot;%3&quot; in theirs.</source>
        <translation>Von &quot;%1&quot; auf der eigenen Seite zu &quot;%2&quot; geändert, auf der fremden zu &quot;%3&quot;.</translation>
    </message>
</context>
<context>
    <name>SParamFinding</name>
    <message>
        <source>error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>info</source>
        <translation>Info</translation>
    </message>
</context>
</TS>
