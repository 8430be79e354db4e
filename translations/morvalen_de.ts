<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>BuildConfigurationPage</name>
    <message>
        <source>The folder that the build writes to, absolute or relative to the working folder of the design.</source>
        <translation>Der Ordner, in den der Build schreibt, absolut oder relativ zum Arbeitsordner des Designs.</translation>
    </message>
    <message>
        <source>Na&amp;me:</source>
        <translation>Na&amp;me:</translation>
    </message>
    <message>
        <source>Tar&amp;get path:</source>
        <translation>&amp;Zielpfad:</translation>
    </message>
    <message>
        <source>Build configuration &quot;%1&quot; of the design &quot;%2&quot;</source>
        <translation>Build-Konfiguration „%1“ des Designs „%2“</translation>
    </message>
    <message>
        <source>The build configuration was changed elsewhere, and you have changed it here.</source>
        <translation>Die Build-Konfiguration wurde anderswo geändert, und Sie haben sie hier geändert.</translation>
    </message>
    <message>
        <source>&amp;Load Theirs</source>
        <translation>Andere &amp;laden</translation>
    </message>
    <message>
        <source>&amp;Keep Mine</source>
        <translation>Meine &amp;behalten</translation>
    </message>
    <message>
        <source>The design &quot;%1&quot; is closed; your changes can no longer be saved.</source>
        <translation>Das Design „%1“ ist geschlossen; Ihre Änderungen können nicht mehr gespeichert werden.</translation>
    </message>
    <message>
        <source>The build configuration is no longer in the design &quot;%1&quot;; saving adds it again.</source>
        <translation>Die Build-Konfiguration ist nicht mehr im Design „%1“; Speichern fügt sie wieder hinzu.</translation>
    </message>
    <message>
        <source>The design &quot;%1&quot; is read-only.</source>
        <translation>Das Design „%1“ ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>The design &quot;%1&quot; is closed</source>
        <translation>Das Design „%1“ ist geschlossen</translation>
    </message>
    <message>
        <source>Build configuration</source>
        <translation>Build-Konfiguration</translation>
    </message>
</context>
<context>
    <name>BuildMenu</name>
    <message>
        <source>&amp;Build</source>
        <translation>&amp;Erstellen</translation>
    </message>
    <message>
        <source>&amp;Active Configuration</source>
        <translation>&amp;Aktive Konfiguration</translation>
    </message>
    <message>
        <source>Build A&amp;ll Steps</source>
        <translation>A&amp;lle Schritte ausführen</translation>
    </message>
    <message>
        <source>&amp;Refresh</source>
        <translation>Aktualisie&amp;ren</translation>
    </message>
    <message>
        <source>&amp;Cancel Build</source>
        <translation>Build ab&amp;brechen</translation>
    </message>
    <message>
        <source>Clean &amp;Generated Files...</source>
        <translation>Erzeugte &amp;Dateien löschen...</translation>
    </message>
    <message>
        <source>&amp;Edit Configuration...</source>
        <translation>Konf&amp;iguration bearbeiten...</translation>
    </message>
    <message>
        <source>&amp;New Configuration...</source>
        <translation>&amp;Neue Konfiguration...</translation>
    </message>
    <message>
        <source>Re&amp;move Configuration...</source>
        <translation>Konfiguration ent&amp;fernen...</translation>
    </message>
    <message>
        <source>&amp;Build &quot;%1&quot; of &quot;%2&quot;</source>
        <translation>„%1“ von „%2“ &amp;erstellen</translation>
    </message>
    <message>
        <source>Build A&amp;ll Steps of &quot;%1&quot; of &quot;%2&quot;</source>
        <translation>A&amp;lle Schritte von „%1“ von „%2“ erstellen</translation>
    </message>
</context>
<context>
    <name>BuildProgress</name>
    <message>
        <source>%v of %m</source>
        <translation>%v von %m</translation>
    </message>
    <message>
        <source>Build steps done</source>
        <translation>Erledigte Schritte des Builds</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cancel the build</source>
        <translation>Den Build abbrechen</translation>
    </message>
    <message>
        <source>%1 (%2 s)</source>
        <translation>%1 (%2 s)</translation>
    </message>
</context>
<context>
    <name>ChangeOrigins</name>
    <message>
        <source>a script</source>
        <translation>einem Skript</translation>
    </message>
    <message>
        <source>the command &quot;%1&quot;</source>
        <translation>dem Befehl „%1“</translation>
    </message>
    <message>
        <source>the build &quot;%1&quot;</source>
        <translation>dem Build „%1“</translation>
    </message>
</context>
<context>
    <name>ColourPage</name>
    <message>
        <source>As the desktop has them</source>
        <translation>Wie der Desktop sie hat</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>The console writes on white in all of them.</source>
        <translation>Die Konsole schreibt in allen auf Weiß.</translation>
    </message>
    <message>
        <source>&amp;Colours of the window:</source>
        <translation>&amp;Farben des Fensters:</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Farben</translation>
    </message>
</context>
<context>
    <name>CommandJournal</name>
    <message>
        <source>The journal &quot;%1&quot; cannot be written: %2</source>
        <translation>Das Journal „%1“ kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>The script &quot;%1&quot; has failed; what it did before is not here</source>
        <translation>Das Skript „%1“ ist fehlgeschlagen; was es davor getan hat, steht hier nicht</translation>
    </message>
</context>
<context>
    <name>ComponentWatch</name>
    <message>
        <source>The design &quot;%1&quot; was changed on disk and is read again</source>
        <translation>Das Design „%1“ wurde auf der Platte geändert und wird neu gelesen</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <translation>&amp;Neu laden</translation>
    </message>
    <message>
        <source>Show &amp;Difference</source>
        <translation>&amp;Unterschied zeigen</translation>
    </message>
    <message>
        <source>Over&amp;write</source>
        <translation>Über&amp;schreiben</translation>
    </message>
    <message>
        <source>Save a Cop&amp;y...</source>
        <translation>&amp;Kopie speichern...</translation>
    </message>
    <message>
        <source>The design &quot;%1&quot; was changed on disk by another program, and has changes here that are not saved.</source>
        <translation>Das Design „%1“ wurde von einem anderen Programm auf der Platte geändert und hat hier Änderungen, die nicht gespeichert sind.</translation>
    </message>
    <message>
        <source>The design &quot;%1&quot; was changed on disk by another program, and cannot be read again: %2</source>
        <translation>Das Design „%1“ wurde von einem anderen Programm auf der Platte geändert und kann nicht neu gelesen werden: %2</translation>
    </message>
    <message>
        <source>Not Read Again</source>
        <translation>Nicht neu gelesen</translation>
    </message>
    <message>
        <source>No Difference Shown</source>
        <translation>Kein Unterschied gezeigt</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>Save a Copy</source>
        <translation>Kopie speichern</translation>
    </message>
    <message>
        <source>Components (*.xml)</source>
        <translation>Komponenten (*.xml)</translation>
    </message>
</context>
<context>
    <name>ConsoleHistory</name>
    <message>
        <source>Cannot lock &quot;%1&quot;</source>
        <translation>„%1“ kann nicht gesperrt werden</translation>
    </message>
    <message>
        <source>Cannot read &quot;%1&quot;: %2</source>
        <translation>„%1“ kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>Cannot write &quot;%1&quot;: %2</source>
        <translation>„%1“ kann nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>DesignDialog</name>
    <message>
        <source>Properties of &quot;%1&quot;</source>
        <translation>Eigenschaften von „%1“</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>&amp;Vendor:</source>
        <translation>&amp;Hersteller:</translation>
    </message>
    <message>
        <source>&amp;Library:</source>
        <translation>&amp;Bibliothek:</translation>
    </message>
    <message>
        <source>&amp;Author:</source>
        <translation>&amp;Autor:</translation>
    </message>
    <message>
        <source>&amp;Description:</source>
        <translation>Bes&amp;chreibung:</translation>
    </message>
    <message>
        <source>&amp;Read-only</source>
        <translation>&amp;Schreibgeschützt</translation>
    </message>
    <message>
        <source>none yet</source>
        <translation>noch keine</translation>
    </message>
    <message>
        <source>Version:</source>
        <translation>Version:</translation>
    </message>
    <message>
        <source>Type:</source>
        <translation>Art:</translation>
    </message>
    <message>
        <source>Component file:</source>
        <translation>Komponentendatei:</translation>
    </message>
    <message>
        <source>Not Changed</source>
        <translation>Nicht geändert</translation>
    </message>
</context>
<context>
    <name>DesignTree</name>
    <message>
        <source>&quot;%1&quot; cannot be made: %2</source>
        <translation>„%1“ kann nicht angelegt werden: %2</translation>
    </message>
    <message>
        <source>There is no &quot;%1&quot;</source>
        <translation>Es gibt kein „%1“</translation>
    </message>
    <message>
        <source>Not Added</source>
        <translation>Nicht hinzugefügt</translation>
    </message>
    <message>
        <source>Not Activated</source>
        <translation>Nicht aktiviert</translation>
    </message>
    <message>
        <source>Set &amp;Active</source>
        <translation>&amp;Aktivieren</translation>
    </message>
    <message>
        <source>&amp;Edit...</source>
        <translation>&amp;Bearbeiten...</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>A&amp;usführen</translation>
    </message>
    <message>
        <source>Not Removed</source>
        <translation>Nicht entfernt</translation>
    </message>
    <message>
        <source>Delete this from disk, and remove it from the design?</source>
        <translation>Dies von der Platte löschen und aus dem Design entfernen?</translation>
    </message>
    <message>
        <source>Not Deleted</source>
        <translation>Nicht gelöscht</translation>
    </message>
    <message>
        <source>&quot;%1&quot; went to the trash</source>
        <translation>„%1“ kam in den Papierkorb</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>Save a Copy</source>
        <translation>Kopie speichern</translation>
    </message>
    <message>
        <source>Components (*.xml)</source>
        <translation>Komponenten (*.xml)</translation>
    </message>
    <message>
        <source>Not Closed</source>
        <translation>Nicht geschlossen</translation>
    </message>
    <message>
        <source>Close and delete these working folders, with everything in them, for good?</source>
        <translation>Diese Designs schließen und ihre Arbeitsordner mit allem darin endgültig löschen?</translation>
    </message>
    <message>
        <source>Rename Design</source>
        <translation>Design umbenennen</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>Not Renamed</source>
        <translation>Nicht umbenannt</translation>
    </message>
    <message>
        <source>No Working Folder Assigned</source>
        <translation>Kein Arbeitsordner zugewiesen</translation>
    </message>
    <message>
        <source>The design &quot;%1&quot; got the working folder &quot;%2&quot;</source>
        <translation>Das Design „%1“ bekam den Arbeitsordner „%2“</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save a Cop&amp;y...</source>
        <translation>&amp;Kopie speichern...</translation>
    </message>
    <message>
        <source>Clean &amp;Generated Files...</source>
        <translation>Er&amp;zeugte Dateien löschen...</translation>
    </message>
    <message>
        <source>Clean Generated Files of All &amp;Versions...</source>
        <translation>Erzeugte Dateien aller &amp;Versionen löschen...</translation>
    </message>
    <message>
        <source>Assign a &amp;Working Folder</source>
        <translation>Arbeits&amp;ordner zuweisen</translation>
    </message>
    <message>
        <source>Open in File &amp;Manager</source>
        <translation>Im Dateimana&amp;ger öffnen</translation>
    </message>
    <message>
        <source>Copy &amp;Id</source>
        <translation>&amp;Id kopieren</translation>
    </message>
    <message>
        <source>&amp;Rename...</source>
        <translation>&amp;Umbenennen...</translation>
    </message>
    <message>
        <source>&amp;Properties of the Design...</source>
        <translation>&amp;Eigenschaften des Designs...</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Close and &amp;Delete Working Folder...</source>
        <translation>Schließen und Arbeitsordner &amp;löschen...</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Not Opened</source>
        <translation>Nicht geöffnet</translation>
    </message>
    <message>
        <source>Not Changed</source>
        <translation>Nicht geändert</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>Dateien hinzufügen</translation>
    </message>
    <message>
        <source>Add New File</source>
        <translation>Neue Datei hinzufügen</translation>
    </message>
    <message>
        <source>Add Folder</source>
        <translation>Ordner hinzufügen</translation>
    </message>
    <message>
        <source>Add &amp;Files...</source>
        <translation>&amp;Dateien hinzufügen...</translation>
    </message>
    <message>
        <source>Add &amp;New File...</source>
        <translation>&amp;Neue Datei hinzufügen...</translation>
    </message>
    <message>
        <source>Add F&amp;older...</source>
        <translation>&amp;Ordner hinzufügen...</translation>
    </message>
    <message>
        <source>Add Proper&amp;ty...</source>
        <translation>&amp;Eigenschaft hinzufügen...</translation>
    </message>
    <message>
        <source>The active items of the design became others</source>
        <translation>Die aktiven Einträge des Designs wurden andere</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>&amp;Category, its levels separated by &quot;::&quot;:</source>
        <translation>&amp;Kategorie, ihre Ebenen durch „::“ getrennt:</translation>
    </message>
    <message>
        <source>Category Not Changed</source>
        <translation>Kategorie nicht geändert</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Edit Value</source>
        <translation>&amp;Wert bearbeiten</translation>
    </message>
    <message>
        <source>A&amp;dd to Active</source>
        <translation>Zu aktiven &amp;hinzufügen</translation>
    </message>
    <message>
        <source>Ta&amp;ke from Active</source>
        <translation>Aus aktiven heraus&amp;nehmen</translation>
    </message>
    <message>
        <source>Ca&amp;tegory...</source>
        <translation>Ka&amp;tegorie...</translation>
    </message>
    <message>
        <source>&amp;Shared Properties...</source>
        <translation>&amp;Gemeinsame Eigenschaften...</translation>
    </message>
    <message>
        <source>Copy &amp;Path</source>
        <translation>&amp;Pfad kopieren</translation>
    </message>
    <message>
        <source>&amp;Copy Value</source>
        <translation>Wert &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Remove from Design...</source>
        <translation>Aus dem Design &amp;entfernen...</translation>
    </message>
    <message>
        <source>De&amp;lete from Disk...</source>
        <translation>Von der Platte &amp;löschen...</translation>
    </message>
    <message>
        <source>1 folder</source>
        <translation>1 Ordner</translation>
    </message>
    <message numerus="yes">
        <source>%n folders</source>
        <translation>
            <numerusform>%n Ordner</numerusform>
            <numerusform>%n Ordner</numerusform>
        </translation>
    </message>
    <message>
        <source>1 property</source>
        <translation>1 Eigenschaft</translation>
    </message>
    <message numerus="yes">
        <source>%n properties</source>
        <translation>
            <numerusform>%n Eigenschaft</numerusform>
            <numerusform>%n Eigenschaften</numerusform>
        </translation>
    </message>
    <message>
        <source>1 configuration</source>
        <translation>1 Konfiguration</translation>
    </message>
    <message numerus="yes">
        <source>%n configurations</source>
        <translation>
            <numerusform>%n Konfiguration</numerusform>
            <numerusform>%n Konfigurationen</numerusform>
        </translation>
    </message>
    <message>
        <source>1 file</source>
        <translation>1 Datei</translation>
    </message>
    <message numerus="yes">
        <source>%n files</source>
        <translation>
            <numerusform>%n Datei</numerusform>
            <numerusform>%n Dateien</numerusform>
        </translation>
    </message>
    <message>
        <source>Modified</source>
        <translation>Geändert</translation>
    </message>
    <message>
        <source>Read-only</source>
        <translation>Schreibgeschützt</translation>
    </message>
    <message>
        <source>Busy</source>
        <translation>Beschäftigt</translation>
    </message>
    <message>
        <source>No folder</source>
        <translation>Kein Ordner</translation>
    </message>
    <message>
        <source>Not removable</source>
        <translation>Nicht entfernbar</translation>
    </message>
    <message>
        <source>Author: %1</source>
        <translation>Autor: %1</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Version Control</source>
        <translation>Versionsverwaltung</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Folders</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>Build Configurations</source>
        <translation>Build-Konfigurationen</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>Fehlt</translation>
    </message>
    <message>
        <source>Generated (%1)</source>
        <translation>Erzeugt (%1)</translation>
    </message>
    <message>
        <source>The design &quot;%1&quot; keeps its files where they are</source>
        <translation>Das Design „%1“ lässt seine Dateien, wo sie sind</translation>
    </message>
    <message>
        <source>The design does not rename files</source>
        <translation>Das Design benennt keine Dateien um</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no name for a file</source>
        <translation>„%1“ ist kein Name für eine Datei</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has changes in the editor that are not saved</source>
        <translation>„%1“ hat im Editor Änderungen, die nicht gespeichert sind</translation>
    </message>
    <message>
        <source>Not Moved</source>
        <translation>Nicht verschoben</translation>
    </message>
    <message>
        <source>Shows only the items with these words in their paths, names or categories</source>
        <translation>Zeigt nur die Einträge mit diesen Wörtern in ihren Pfaden, Namen oder Kategorien</translation>
    </message>
    <message>
        <source>Pas&amp;te</source>
        <translation>E&amp;infügen</translation>
    </message>
    <message>
        <source>Rena&amp;me</source>
        <translation>U&amp;mbenennen</translation>
    </message>
    <message>
        <source>C&amp;ut</source>
        <translation>A&amp;usschneiden</translation>
    </message>
    <message>
        <source>Not Brought Back</source>
        <translation>Nicht zurückgeholt</translation>
    </message>
    <message>
        <source>Copy &amp;Names</source>
        <translation>&amp;Namen kopieren</translation>
    </message>
    <message>
        <source>E&amp;xpand All</source>
        <translation>Alles aufkla&amp;ppen</translation>
    </message>
    <message>
        <source>Co&amp;llapse All</source>
        <translation>Alles &amp;zuklappen</translation>
    </message>
    <message>
        <source>&amp;New Configuration...</source>
        <translation>&amp;Neue Konfiguration...</translation>
    </message>
    <message>
        <source>Run A&amp;ll Steps</source>
        <translation>A&amp;lle Schritte ausführen</translation>
    </message>
    <message>
        <source>&amp;Open Folder</source>
        <translation>&amp;Ordner öffnen</translation>
    </message>
    <message>
        <source>&amp;Duplicate...</source>
        <translation>&amp;Duplizieren...</translation>
    </message>
    <message>
        <source>Rena&amp;me...</source>
        <translation>U&amp;mbenennen...</translation>
    </message>
    <message>
        <source>Remo&amp;ve...</source>
        <translation>&amp;Entfernen...</translation>
    </message>
</context>
<context>
    <name>DesignTreeView</name>
    <message>
        <source>No item matches the filter</source>
        <translation>Kein Eintrag passt zum Filter</translation>
    </message>
    <message>
        <source>Designs</source>
        <translation>Designs</translation>
    </message>
</context>
<context>
    <name>DesignsMode</name>
    <message>
        <source>Designs</source>
        <translation>Designs</translation>
    </message>
</context>
<context>
    <name>DifferenceDialog</name>
    <message>
        <source>Difference: %1</source>
        <translation>Unterschied: %1</translation>
    </message>
    <message>
        <source>The lines are the same; what differs is how they end, or how their characters are written.</source>
        <translation>Die Zeilen sind gleich; verschieden ist, wie sie enden oder wie ihre Zeichen geschrieben sind.</translation>
    </message>
    <message>
        <source>Lines with &quot;-&quot; are on disk only, lines with &quot;+&quot; are here only.</source>
        <translation>Zeilen mit „-“ gibt es nur auf der Platte, Zeilen mit „+“ nur hier.</translation>
    </message>
    <message>
        <source>Difference</source>
        <translation>Unterschied</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>Wieder&amp;herstellen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>A&amp;usschneiden</translation>
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
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation>&amp;Suchen...</translation>
    </message>
</context>
<context>
    <name>EditingPage</name>
    <message>
        <source>&amp;Indent with spaces</source>
        <translation>Mit &amp;Leerzeichen einrücken</translation>
    </message>
    <message>
        <source>Indent as the &amp;file does where it has indented lines</source>
        <translation>Einrücken wie die &amp;Datei, wo sie eingerückte Zeilen hat</translation>
    </message>
    <message>
        <source> columns</source>
        <translation> Spalten</translation>
    </message>
    <message>
        <source>&amp;Tabs and steps take:</source>
        <translation>&amp;Tabulatoren und Schritte nehmen:</translation>
    </message>
    <message>
        <source>Editing</source>
        <translation>Bearbeiten</translation>
    </message>
</context>
<context>
    <name>EditorActions</name>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save A&amp;ll</source>
        <translation>A&amp;lles speichern</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Close &amp;Others</source>
        <translation>&amp;Andere schließen</translation>
    </message>
    <message>
        <source>Close &amp;All</source>
        <translation>A&amp;lle schließen</translation>
    </message>
    <message>
        <source>&amp;Next File</source>
        <translation>&amp;Nächste Datei</translation>
    </message>
    <message>
        <source>&amp;Previous File</source>
        <translation>Vorher&amp;ige Datei</translation>
    </message>
    <message>
        <source>Save a Cop&amp;y...</source>
        <translation>Kopie s&amp;peichern...</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>Wieder&amp;herstellen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>A&amp;usschneiden</translation>
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
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation>&amp;Suchen...</translation>
    </message>
    <message>
        <source>Find &amp;Next</source>
        <translation>&amp;Weitersuchen</translation>
    </message>
    <message>
        <source>Find Pre&amp;vious</source>
        <translation>&amp;Vorherige Stelle suchen</translation>
    </message>
    <message>
        <source>R&amp;eplace...</source>
        <translation>Erse&amp;tzen...</translation>
    </message>
    <message>
        <source>&amp;Go to Line...</source>
        <translation>Gehe zu &amp;Zeile...</translation>
    </message>
    <message>
        <source>Toggle Co&amp;mment</source>
        <translation>Ko&amp;mmentar umschalten</translation>
    </message>
    <message>
        <source>&amp;Larger Text</source>
        <translation>Größerer Te&amp;xt</translation>
    </message>
    <message>
        <source>S&amp;maller Text</source>
        <translation>Kleinerer T&amp;ext</translation>
    </message>
    <message>
        <source>&amp;Usual Size of Text</source>
        <translation>Übliche Te&amp;xtgröße</translation>
    </message>
    <message>
        <source>Spl&amp;it or Join</source>
        <translation>&amp;Teilen oder verbinden</translation>
    </message>
    <message>
        <source>Co&amp;ding...</source>
        <translation>&amp;Codierung...</translation>
    </message>
</context>
<context>
    <name>EditorArea</name>
    <message>
        <source>Not Saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>No file is open here.
Double-click a file of a design to edit it.</source>
        <translation>Hier ist keine Datei offen.
Ein Doppelklick auf die Datei eines Designs öffnet sie.</translation>
    </message>
    <message>
        <source>%1 – %2</source>
        <translation>%1 – %2</translation>
    </message>
</context>
<context>
    <name>FileMenu</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Pre&amp;ferences...</source>
        <translation>&amp;Einstellungen...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;New Design...</source>
        <translation>&amp;Neues Design...</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Close &amp;Design</source>
        <translation>&amp;Design schließen</translation>
    </message>
    <message>
        <source>Close &amp;Design &quot;%1&quot;</source>
        <translation>&amp;Design „%1“ schließen</translation>
    </message>
</context>
<context>
    <name>FileSync</name>
    <message>
        <source>Save a Copy</source>
        <translation>Kopie speichern</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>No Difference Shown</source>
        <translation>Kein Unterschied gezeigt</translation>
    </message>
    <message>
        <source>File Is Gone</source>
        <translation>Datei ist fort</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no longer on disk. Write it again?</source>
        <translation>„%1“ ist nicht mehr auf der Platte. Noch einmal schreiben?</translation>
    </message>
</context>
<context>
    <name>FindBar</name>
    <message>
        <source>Find:</source>
        <translation>Suchen:</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Weiter</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Match &amp;case</source>
        <translation>&amp;Groß und klein unterscheiden</translation>
    </message>
    <message>
        <source>&amp;Whole words</source>
        <translation>Ganze Wö&amp;rter</translation>
    </message>
    <message>
        <source>Regular e&amp;xpression</source>
        <translation>Regulärer &amp;Ausdruck</translation>
    </message>
    <message>
        <source>Replace with:</source>
        <translation>Ersetzen durch:</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>&amp;Ersetzen</translation>
    </message>
    <message>
        <source>Replace &amp;All</source>
        <translation>A&amp;lle ersetzen</translation>
    </message>
</context>
<context>
    <name>FindTools</name>
    <message>
        <source>&amp;Go To...</source>
        <translation>&amp;Gehe zu...</translation>
    </message>
    <message>
        <source>Find in F&amp;iles...</source>
        <translation>In &amp;Dateien suchen...</translation>
    </message>
    <message>
        <source>Find in Files</source>
        <translation>In Dateien suchen</translation>
    </message>
</context>
<context>
    <name>FindView</name>
    <message>
        <source>Match &amp;Case</source>
        <translation>&amp;Groß und klein unterscheiden</translation>
    </message>
    <message>
        <source>&amp;Replace Checked</source>
        <translation>Markierte &amp;ersetzen</translation>
    </message>
    <message>
        <source>Found</source>
        <translation>Gefunden</translation>
    </message>
    <message>
        <source>After Replacing</source>
        <translation>Nach dem Ersetzen</translation>
    </message>
    <message>
        <source>Text to Find</source>
        <translation>Gesuchter Text</translation>
    </message>
    <message>
        <source>Find in files; Return begins</source>
        <translation>In Dateien suchen; die Eingabetaste beginnt</translation>
    </message>
    <message>
        <source>Files to Search</source>
        <translation>Zu durchsuchende Dateien</translation>
    </message>
    <message>
        <source>Active Design</source>
        <translation>Aktives Design</translation>
    </message>
    <message>
        <source>All Open Designs</source>
        <translation>Alle offenen Designs</translation>
    </message>
    <message>
        <source>Replacement</source>
        <translation>Ersatz</translation>
    </message>
    <message>
        <source>Replace with</source>
        <translation>Ersetzen durch</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Suche läuft...</translation>
    </message>
    <message>
        <source>%L1 in %L2 of %L3 files</source>
        <translation>%L1 in %L2 von %L3 Dateien</translation>
    </message>
    <message>
        <source>The first %1</source>
        <translation>Die ersten %1</translation>
    </message>
    <message numerus="yes">
        <source>%Ln replaced</source>
        <translation>
            <numerusform>%Ln ersetzt</numerusform>
            <numerusform>%Ln ersetzt</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Replaced</source>
        <translation>Nicht ersetzt</translation>
    </message>
</context>
<context>
    <name>FontChoice</name>
    <message>
        <source> pt</source>
        <translation> pt</translation>
    </message>
    <message>
        <source>Family:</source>
        <translation>Familie:</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Größe:</translation>
    </message>
</context>
<context>
    <name>FontPage</name>
    <message>
        <source>&amp;Console in a font of your own</source>
        <translation>&amp;Konsole in einer eigenen Schrift</translation>
    </message>
    <message>
        <source>&amp;Editors in a font of your own</source>
        <translation>&amp;Editoren in einer eigenen Schrift</translation>
    </message>
    <message>
        <source>Fonts</source>
        <translation>Schriften</translation>
    </message>
</context>
<context>
    <name>GoToLineBar</name>
    <message>
        <source>Go to line:</source>
        <translation>Gehe zu Zeile:</translation>
    </message>
    <message>
        <source>&amp;Go</source>
        <translation>&amp;Los</translation>
    </message>
    <message>
        <source>of %L1</source>
        <translation>von %L1</translation>
    </message>
</context>
<context>
    <name>HelpBrowser</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vorwärts</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Search the manual</source>
        <translation>Handbuch durchsuchen</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
</context>
<context>
    <name>HelpDock</name>
    <message>
        <source>Manual</source>
        <translation>Handbuch</translation>
    </message>
</context>
<context>
    <name>HelpMenu</name>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Commands</source>
        <translation>&amp;Befehle</translation>
    </message>
    <message>
        <source>&amp;About Morvalen</source>
        <translation>&amp;Über Morvalen</translation>
    </message>
    <message>
        <source>About Morvalen</source>
        <translation>Über Morvalen</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Morvalen %1&lt;/h3&gt;&lt;p&gt;Designs as IP-XACT components, and Tcl to script them.&lt;/p&gt;&lt;p&gt;Qt %2, Tcl %3&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Morvalen %1&lt;/h3&gt;&lt;p&gt;Designs als IP-XACT-Komponenten, und Tcl für Skripte dazu.&lt;/p&gt;&lt;p&gt;Qt %2, Tcl %3&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&amp;The Window</source>
        <translation>Das &amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>&amp;Tasten</translation>
    </message>
    <message>
        <source>The Window</source>
        <translation>Das Fenster</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
</context>
<context>
    <name>HistorySearch</name>
    <message>
        <source>Search the history:</source>
        <translation>Verlauf durchsuchen:</translation>
    </message>
    <message>
        <source>not found</source>
        <translation>nicht gefunden</translation>
    </message>
</context>
<context>
    <name>IncrementalSearch</name>
    <message>
        <source>continued at the top</source>
        <translation>am Anfang fortgesetzt</translation>
    </message>
    <message>
        <source>continued at the end</source>
        <translation>am Ende fortgesetzt</translation>
    </message>
    <message numerus="yes">
        <source>%Ln replaced</source>
        <translation>
            <numerusform>%Ln ersetzt</numerusform>
            <numerusform>%Ln ersetzt</numerusform>
        </translation>
    </message>
    <message>
        <source>more than %L1</source>
        <translation>mehr als %L1</translation>
    </message>
    <message>
        <source>%L1 found</source>
        <translation>%L1 gefunden</translation>
    </message>
    <message>
        <source>%L1 of %L2</source>
        <translation>%L1 von %L2</translation>
    </message>
    <message>
        <source>not found</source>
        <translation>nicht gefunden</translation>
    </message>
</context>
<context>
    <name>IssueModel</name>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>%1 (%L2)</source>
        <translation>%1 (%L2)</translation>
    </message>
    <message>
        <source>%1, the first are listed</source>
        <translation>%1, die ersten sind aufgeführt</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Issue</source>
        <translation>Meldung</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Zeile</translation>
    </message>
</context>
<context>
    <name>IssueSources</name>
    <message>
        <source>The step &quot;%1&quot; failed</source>
        <translation>Der Schritt „%1“ ist fehlgeschlagen</translation>
    </message>
</context>
<context>
    <name>IssuesView</name>
    <message>
        <source>&amp;Next Issue</source>
        <translation>&amp;Nächste Meldung</translation>
    </message>
    <message>
        <source>&amp;Previous Issue</source>
        <translation>V&amp;orherige Meldung</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Issues</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Leeren</translation>
    </message>
</context>
<context>
    <name>JournalDock</name>
    <message>
        <source>Journal</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>What you change in designs and projects shows here as the commands that do it.</source>
        <translation>Was Sie an Designs und Projekten ändern, erscheint hier als die Befehle, die es tun.</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Save as Script...</source>
        <translation>Als Skript speichern...</translation>
    </message>
    <message>
        <source>Run Again from Here</source>
        <translation>Ab hier noch einmal ausführen</translation>
    </message>
    <message>
        <source>Save as Script</source>
        <translation>Als Skript speichern</translation>
    </message>
    <message>
        <source>Tcl scripts (*.tcl)</source>
        <translation>Tcl-Skripte (*.tcl)</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
</context>
<context>
    <name>KeptTexts</name>
    <message>
        <source>The folder &quot;%1&quot; cannot be made: %2</source>
        <translation>Der Ordner „%1“ kann nicht angelegt werden: %2</translation>
    </message>
    <message>
        <source>A text that was kept cannot be read; it is in &quot;%1&quot;</source>
        <translation>Ein aufgehobener Text kann nicht gelesen werden; er liegt in „%1“</translation>
    </message>
</context>
<context>
    <name>KeptTextsDialog</name>
    <message>
        <source>as it was</source>
        <translation>wie sie war</translation>
    </message>
    <message>
        <source>changed since</source>
        <translation>seither geändert</translation>
    </message>
    <message>
        <source>gone</source>
        <translation>fort</translation>
    </message>
    <message>
        <source>Unsaved Texts</source>
        <translation>Nicht gespeicherte Texte</translation>
    </message>
    <message>
        <source>The program ended before these texts were saved. What you restore opens with its changes; nothing on disk is changed.</source>
        <translation>Das Programm endete, bevor diese Texte gespeichert waren. Was Sie wiederherstellen, öffnet sich mit seinen Änderungen; auf der Platte ändert sich nichts.</translation>
    </message>
    <message>
        <source>Unsaved texts</source>
        <translation>Nicht gespeicherte Texte</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Kept</source>
        <translation>Aufgehoben</translation>
    </message>
    <message>
        <source>On Disk</source>
        <translation>Auf der Platte</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>Show &amp;Difference</source>
        <translation>&amp;Unterschied zeigen</translation>
    </message>
    <message>
        <source>Dis&amp;card</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>Ask &amp;Later</source>
        <translation>&amp;Später fragen</translation>
    </message>
    <message>
        <source>Discard Texts</source>
        <translation>Texte verwerfen</translation>
    </message>
    <message>
        <source>Discard the selected texts for good?</source>
        <translation>Die ausgewählten Texte endgültig verwerfen?</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>No Difference Shown</source>
        <translation>Kein Unterschied gezeigt</translation>
    </message>
</context>
<context>
    <name>Leaving</name>
    <message>
        <source>A Build Is Running</source>
        <translation>Ein Build läuft</translation>
    </message>
    <message>
        <source>A build is running.</source>
        <translation>Ein Build läuft.</translation>
    </message>
    <message>
        <source>Quitting cancels it.</source>
        <translation>Beenden bricht ihn ab.</translation>
    </message>
    <message>
        <source>&amp;Quit Anyway</source>
        <translation>&amp;Trotzdem beenden</translation>
    </message>
    <message>
        <source>A Command Is Running</source>
        <translation>Ein Befehl läuft</translation>
    </message>
    <message>
        <source>The console is running a command.</source>
        <translation>Die Konsole führt einen Befehl aus.</translation>
    </message>
    <message>
        <source>Quitting ends it where it is.</source>
        <translation>Beenden bricht ihn ab, wo er gerade ist.</translation>
    </message>
    <message>
        <source>Unsaved Changes</source>
        <translation>Nicht gespeicherte Änderungen</translation>
    </message>
    <message>
        <source>The program ends, and there are changes that are not saved.</source>
        <translation>Das Programm endet, und es gibt Änderungen, die nicht gespeichert sind.</translation>
    </message>
</context>
<context>
    <name>LiveWindow</name>
    <message>
        <source>A script is running. Stop it first, with Escape.</source>
        <translation>Ein Skript läuft. Halten Sie es zuerst an, mit Escape.</translation>
    </message>
    <message>
        <source>Leave Morvalen</source>
        <translation>Morvalen verlassen</translation>
    </message>
    <message>
        <source>A script is running.</source>
        <translation>Ein Skript läuft.</translation>
    </message>
    <message>
        <source>It is stopped where it is before the window closes.</source>
        <translation>Es wird angehalten, wo es ist, bevor sich das Fenster schließt.</translation>
    </message>
    <message>
        <source>&amp;Stop and Leave</source>
        <translation>&amp;Anhalten und verlassen</translation>
    </message>
</context>
<context>
    <name>Locator</name>
    <message>
        <source>Go To</source>
        <translation>Gehe zu</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Part of the name of a file, design, command, script or setting</source>
        <translation>Teil des Namens einer Datei, eines Designs, eines Befehls, eines Skripts oder einer Einstellung</translation>
    </message>
    <message>
        <source>Found</source>
        <translation>Gefunden</translation>
    </message>
</context>
<context>
    <name>LocatorModel</name>
    <message>
        <source>Design</source>
        <translation>Design</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Script</source>
        <translation>Skript</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>Einstellung</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
</context>
<context>
    <name>MacroEditor</name>
    <message>
        <source>Add Mac&amp;ro</source>
        <translation>Mak&amp;ro hinzufügen</translation>
    </message>
    <message>
        <source>Remove M&amp;acro</source>
        <translation>M&amp;akro entfernen</translation>
    </message>
    <message>
        <source>Macro</source>
        <translation>Makro</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Macros</source>
        <translation>Makros</translation>
    </message>
    <message>
        <source>$(NAME) in a command, a path or a value stands for the macro&apos;s value.</source>
        <translation>$(NAME) in einem Befehl, einem Pfad oder einem Wert steht für den Wert des Makros.</translation>
    </message>
    <message>
        <source>NAME</source>
        <translation>NAME</translation>
    </message>
    <message>
        <source>Two macros have the name &quot;%1&quot;.</source>
        <translation>Zwei Makros haben den Namen „%1“.</translation>
    </message>
    <message>
        <source>A macro has no name.</source>
        <translation>Ein Makro hat keinen Namen.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>The program is asked to end from outside</source>
        <translation>Das Programm wird von außen gebeten zu enden</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Issues</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Scripts</source>
        <translation>Skripte</translation>
    </message>
    <message>
        <source>Designs</source>
        <translation>Designs</translation>
    </message>
</context>
<context>
    <name>ManualBrowser</name>
    <message>
        <source>Manual</source>
        <translation>Handbuch</translation>
    </message>
</context>
<context>
    <name>MemoryPage</name>
    <message>
        <source>The &amp;layout of the window</source>
        <translation>Die &amp;Anordnung des Fensters</translation>
    </message>
    <message>
        <source>The files that were &amp;opened</source>
        <translation>Die ge&amp;öffneten Dateien</translation>
    </message>
    <message>
        <source>The console&apos;s &amp;history</source>
        <translation>Den &amp;Verlauf der Konsole</translation>
    </message>
    <message>
        <source>What is open in the &amp;window</source>
        <translation>Was im &amp;Fenster offen ist</translation>
    </message>
    <message>
        <source>The history is kept in a file of the session folder that only you can read. It holds commands as they were typed.</source>
        <translation>Der Verlauf steht in einer Datei des Sitzungsordners, die nur Sie lesen können. Er enthält Befehle, wie sie getippt wurden.</translation>
    </message>
    <message>
        <source>Keep from one run to the next:</source>
        <translation>Von einem Lauf zum nächsten behalten:</translation>
    </message>
    <message>
        <source>Ask</source>
        <translation>Fragen</translation>
    </message>
    <message>
        <source>Save them</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Leave them as they are</source>
        <translation>Lassen, wie sie sind</translation>
    </message>
    <message>
        <source>&amp;Unsaved pages before a build:</source>
        <translation>&amp;Nicht gespeicherte Seiten vor einem Build:</translation>
    </message>
    <message>
        <source>Remembered</source>
        <translation>Behalten</translation>
    </message>
</context>
<context>
    <name>ModeBar</name>
    <message>
        <source>Modes</source>
        <translation>Modi</translation>
    </message>
</context>
<context>
    <name>NewDesignDialog</name>
    <message>
        <source>New Design</source>
        <translation>Neues Design</translation>
    </message>
    <message>
        <source>&amp;Create</source>
        <translation>&amp;Anlegen</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>A&amp;rt:</translation>
    </message>
    <message>
        <source>&amp;Structure:</source>
        <translation>&amp;Struktur:</translation>
    </message>
    <message>
        <source>&amp;Vendor:</source>
        <translation>&amp;Hersteller:</translation>
    </message>
    <message>
        <source>&amp;Library:</source>
        <translation>&amp;Bibliothek:</translation>
    </message>
    <message>
        <source>Folder:</source>
        <translation>Ordner:</translation>
    </message>
</context>
<context>
    <name>NoDesignPage</name>
    <message>
        <source>&lt;h3&gt;No design is open&lt;/h3&gt;</source>
        <translation>&lt;h3&gt;Kein Design ist offen&lt;/h3&gt;</translation>
    </message>
    <message>
        <source>&amp;New Design...</source>
        <translation>&amp;Neues Design...</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>&lt;p&gt;Or type in the console:&lt;/p&gt;&lt;p&gt;&lt;code&gt;designs new uart &quot;Hardware Design&quot;&lt;/code&gt;&lt;/p&gt;</source>
        <translation>&lt;p&gt;Oder tippen Sie in der Konsole:&lt;/p&gt;&lt;p&gt;&lt;code&gt;designs new uart &quot;Hardware Design&quot;&lt;/code&gt;&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>OpenThings</name>
    <message>
        <source>Not Opened Again</source>
        <translation>Nicht wieder geöffnet</translation>
    </message>
</context>
<context>
    <name>PaneKeys</name>
    <message>
        <source>Ne&amp;xt Pane</source>
        <translation>Nächster Bere&amp;ich</translation>
    </message>
    <message>
        <source>Pre&amp;vious Pane</source>
        <translation>Vorheriger &amp;Bereich</translation>
    </message>
</context>
<context>
    <name>PlacesPage</name>
    <message>
        <source>&amp;Go on with what does not depend on a failed step</source>
        <translation>&amp;Weiter mit dem, was nicht von einem fehlgeschlagenen Schritt abhängt</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keiner</translation>
    </message>
    <message>
        <source>as many as fit this machine</source>
        <translation>so viele, wie zu diesem Rechner passen</translation>
    </message>
    <message>
        <source>&amp;Launcher of build steps:</source>
        <translation>&amp;Starter der Schritte:</translation>
    </message>
    <message>
        <source>A command that is put in front of the command of every build step, to hand it to a compiler farm or a batch queue.</source>
        <translation>Ein Befehl, der vor den Befehl jedes Schritts gesetzt wird, um ihn an eine Rechnerfarm oder eine Warteschlange zu geben.</translation>
    </message>
    <message>
        <source>&amp;Steps at the same time:</source>
        <translation>Sch&amp;ritte zugleich:</translation>
    </message>
    <message>
        <source>&amp;Pools:</source>
        <translation>&amp;Pools:</translation>
    </message>
    <message>
        <source>What steps share, such as licences: a name, &quot;=&quot;, and how many steps of that pool run at once; one on each line.</source>
        <translation>Was Schritte sich teilen, etwa Lizenzen: ein Name, „=“ und wie viele Schritte dieses Pools zugleich laufen; einer je Zeile.</translation>
    </message>
    <message>
        <source>Folders for &amp;targets:</source>
        <translation>Ordner für &amp;Ziele:</translation>
    </message>
    <message>
        <source>Folders outside of a design&apos;s own that its builds may write to, such as a scratch disk; one on each line.</source>
        <translation>Ordner außerhalb der eigenen eines Designs, in die seine Builds schreiben dürfen, etwa eine Platte für Zwischenergebnisse; einer je Zeile.</translation>
    </message>
    <message>
        <source>&amp;Folder of projects:</source>
        <translation>&amp;Ordner der Projekte:</translation>
    </message>
    <message>
        <source>Where projects are opened and saved unless you say otherwise.</source>
        <translation>Wo Projekte geöffnet und gespeichert werden, wenn Sie nichts anderes sagen.</translation>
    </message>
    <message>
        <source>&amp;Choose...</source>
        <translation>&amp;Auswählen...</translation>
    </message>
    <message>
        <source>Folder of Projects</source>
        <translation>Ordner der Projekte</translation>
    </message>
    <message>
        <source>Builds and Projects</source>
        <translation>Builds und Projekte</translation>
    </message>
</context>
<context>
    <name>PositionBar</name>
    <message>
        <source>Line %L1, Column %L2</source>
        <translation>Zeile %L1, Spalte %L2</translation>
    </message>
    <message>
        <source> (%L1 selected)</source>
        <translation> (%L1 ausgewählt)</translation>
    </message>
</context>
<context>
    <name>PreferencesDialog</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Not Kept</source>
        <translation>Nicht behalten</translation>
    </message>
    <message>
        <source>The settings file &quot;%1&quot; cannot be written.</source>
        <translation>Die Datei der Einstellungen „%1“ kann nicht geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>ProjectMenu</name>
    <message>
        <source>&amp;Project</source>
        <translation>&amp;Projekt</translation>
    </message>
    <message>
        <source>&amp;New Project</source>
        <translation>&amp;Neues Projekt</translation>
    </message>
    <message>
        <source>&amp;Open Project...</source>
        <translation>Projekt ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>&amp;Save Project</source>
        <translation>Projekt &amp;speichern</translation>
    </message>
    <message>
        <source>Save Project &amp;As...</source>
        <translation>Projekt speichern &amp;unter...</translation>
    </message>
    <message>
        <source>&amp;Close Project</source>
        <translation>Projekt s&amp;chließen</translation>
    </message>
    <message>
        <source>Not Closed</source>
        <translation>Nicht geschlossen</translation>
    </message>
</context>
<context>
    <name>PropertyDialog</name>
    <message>
        <source>Property</source>
        <translation>Eigenschaft</translation>
    </message>
    <message>
        <source>Shared Property</source>
        <translation>Gemeinsame Eigenschaft</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>&amp;Typ:</translation>
    </message>
    <message>
        <source>&amp;Value:</source>
        <translation>&amp;Wert:</translation>
    </message>
    <message>
        <source>Its levels separated by &quot;::&quot;</source>
        <translation>Ihre Ebenen durch „::“ getrennt</translation>
    </message>
    <message>
        <source>&amp;Category:</source>
        <translation>&amp;Kategorie:</translation>
    </message>
    <message>
        <source>&amp;Read-only</source>
        <translation>&amp;Schreibgeschützt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no value of the type %2</source>
        <translation>„%1“ ist kein Wert vom Typ %2</translation>
    </message>
</context>
<context>
    <name>QConsole</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
<context>
    <name>QMessageBox</name>
    <message>
        <source>It was refused; no reason is known.</source>
        <translation>Es wurde abgelehnt; ein Grund ist nicht bekannt.</translation>
    </message>
    <message numerus="yes">
        <source>And %n more.</source>
        <translation>
            <numerusform>Und eine weitere.</numerusform>
            <numerusform>Und %n weitere.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Alles speichern</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>Yes to &amp;All</source>
        <translation>Ja, &amp;alle</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>N&amp;o to All</source>
        <translation>N&amp;ein, keine</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Wiederholen</translation>
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
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Restore Defaults</source>
        <translation>Voreinstellungen</translation>
    </message>
</context>
<context>
    <name>Qtilities::CoreGui::LogModel</name>
    <message>
        <source>(%L1 more characters)</source>
        <translation>(%L1 weitere Zeichen)</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Fatal</source>
        <translation>Fatal</translation>
    </message>
    <message>
        <source>Debug</source>
        <translation>Debug</translation>
    </message>
    <message>
        <source>Trace</source>
        <translation>Trace</translation>
    </message>
</context>
<context>
    <name>Qtilities::CoreGui::LogView</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy with &amp;Time and Level</source>
        <translation>Mit &amp;Zeit und Stufe kopieren</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Leeren</translation>
    </message>
</context>
<context>
    <name>Qtilities::CoreGui::LogWidget</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Show messages of this level</source>
        <translation>Meldungen dieser Stufe zeigen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Return finds the next line, Shift+Return the one before</source>
        <translation>Die Eingabetaste findet die nächste Zeile, mit Umschalt die vorige</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
    <message>
        <source>Only the newest lines are kept; older lines dropped: %L1</source>
        <translation>Nur die neuesten Zeilen bleiben; weggelassene ältere Zeilen: %L1</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Search the log</source>
        <translation>Protokoll durchsuchen</translation>
    </message>
    <message>
        <source>Lines: %L1</source>
        <translation>Zeilen: %L1</translation>
    </message>
    <message>
        <source>Line %L1 of %L2</source>
        <translation>Zeile %L1 von %L2</translation>
    </message>
</context>
<context>
    <name>RecentMenu</name>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>No Files Were Opened Yet</source>
        <translation>Noch keine Dateien geöffnet</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>Liste &amp;leeren</translation>
    </message>
</context>
<context>
    <name>RunStatus</name>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Stop what runs (Escape)</source>
        <translation>Anhalten, was läuft (Escape)</translation>
    </message>
    <message>
        <source>Running for %1 s: a Tcl event (Escape stops it)</source>
        <translation>Läuft seit %1 s: ein Ereignis von Tcl (Escape hält es an)</translation>
    </message>
    <message>
        <source>Running for %1 s: %2 (Escape stops it)</source>
        <translation>Läuft seit %1 s: %2 (Escape hält es an)</translation>
    </message>
</context>
<context>
    <name>SaveActions</name>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save A&amp;ll</source>
        <translation>A&amp;lles speichern</translation>
    </message>
    <message>
        <source>&amp;Save &quot;%1&quot;</source>
        <translation>„%1“ &amp;speichern</translation>
    </message>
    <message>
        <source>There are no unsaved changes here</source>
        <translation>Hier gibt es keine nicht gespeicherten Änderungen</translation>
    </message>
</context>
<context>
    <name>ScriptMenu</name>
    <message>
        <source>&amp;Scripts</source>
        <translation>&amp;Skripte</translation>
    </message>
    <message>
        <source>&amp;Edit Script</source>
        <translation>Skript &amp;bearbeiten</translation>
    </message>
    <message>
        <source>Run Last Script &amp;Again</source>
        <translation>Letztes Skript noch ein&amp;mal ausführen</translation>
    </message>
    <message>
        <source>&amp;Run Script in Editor</source>
        <translation>Skript im &amp;Editor ausführen</translation>
    </message>
    <message>
        <source>&amp;New Script...</source>
        <translation>&amp;Neues Skript...</translation>
    </message>
    <message>
        <source>Save Recorded &amp;Commands...</source>
        <translation>Aufgezeichnete Befehle &amp;speichern...</translation>
    </message>
    <message>
        <source>Show Execution &amp;Log</source>
        <translation>Aus&amp;führungsprotokoll zeigen</translation>
    </message>
    <message>
        <source>&amp;Stop Running Script</source>
        <translation>Laufendes Skript an&amp;halten</translation>
    </message>
    <message>
        <source>No Scripts in the Session&apos;s Folder</source>
        <translation>Keine Skripte im Ordner der Sitzung</translation>
    </message>
    <message>
        <source>Open Scripts &amp;Folder</source>
        <translation>&amp;Ordner der Skripte öffnen</translation>
    </message>
    <message>
        <source>&amp;Run &quot;%1&quot;</source>
        <translation>„%1“ ausfüh&amp;ren</translation>
    </message>
    <message>
        <source>New Script</source>
        <translation>Neues Skript</translation>
    </message>
    <message>
        <source>Not Written</source>
        <translation>Nicht geschrieben</translation>
    </message>
    <message>
        <source>Cannot write &quot;%1&quot;: %2</source>
        <translation>„%1“ kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Save Recorded Commands</source>
        <translation>Aufgezeichnete Befehle speichern</translation>
    </message>
    <message>
        <source>Cannot write &quot;%1&quot;</source>
        <translation>„%1“ kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Run %1 &amp;Again</source>
        <translation>%1 noch ein&amp;mal ausführen</translation>
    </message>
</context>
<context>
    <name>ScriptsView</name>
    <message>
        <source>Scripts</source>
        <translation>Skripte</translation>
    </message>
    <message>
        <source>&amp;Run	F5</source>
        <translation>A&amp;usführen	F5</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;New Script...</source>
        <translation>&amp;Neues Skript...</translation>
    </message>
</context>
<context>
    <name>SharedPropertiesDialog</name>
    <message>
        <source>Shared Properties of &quot;%1&quot;</source>
        <translation>Gemeinsame Eigenschaften von „%1“</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>&amp;Add...</source>
        <translation>&amp;Hinzufügen...</translation>
    </message>
    <message>
        <source>&amp;Change...</source>
        <translation>Ä&amp;ndern...</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Not Changed</source>
        <translation>Nicht geändert</translation>
    </message>
    <message>
        <source>Not Removed</source>
        <translation>Nicht entfernt</translation>
    </message>
    <message>
        <source>Shared properties</source>
        <translation>Gemeinsame Eigenschaften</translation>
    </message>
</context>
<context>
    <name>StepEditor</name>
    <message>
        <source>Build steps</source>
        <translation>Schritte des Builds</translation>
    </message>
    <message>
        <source>Add S&amp;tep</source>
        <translation>Schri&amp;tt hinzufügen</translation>
    </message>
    <message>
        <source>Remove Ste&amp;p</source>
        <translation>Schritt entfe&amp;rnen</translation>
    </message>
    <message>
        <source>Move &amp;Up</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>Move &amp;Down</source>
        <translation>Nach &amp;unten</translation>
    </message>
    <message>
        <source>new step</source>
        <translation>neuer Schritt</translation>
    </message>
    <message>
        <source>Two steps have the name &quot;%1&quot;.</source>
        <translation>Zwei Schritte haben den Namen „%1“.</translation>
    </message>
    <message>
        <source>A step has no name.</source>
        <translation>Ein Schritt hat keinen Namen.</translation>
    </message>
</context>
<context>
    <name>StepForm</name>
    <message>
        <source>One path in a line, absolute or relative to the working folder.</source>
        <translation>Ein Pfad je Zeile, absolut oder relativ zum Arbeitsordner.</translation>
    </message>
    <message>
        <source>Run by /bin/sh in the working folder. $(INPUTS), $(OUTPUTS) and $(TARGET_PATH) are replaced, and so are all macros.</source>
        <translation>Ausgeführt von /bin/sh im Arbeitsordner. $(INPUTS), $(OUTPUTS) und $(TARGET_PATH) werden ersetzt, ebenso alle Makros.</translation>
    </message>
    <message>
        <source>&quot;node:NAME&quot; stands for the files of a node.</source>
        <translation>„node:NAME“ steht für die Dateien eines Knotens.</translation>
    </message>
    <message>
        <source>A step without outputs runs every time.</source>
        <translation>Ein Schritt ohne Ausgaben läuft jedes Mal.</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keiner</translation>
    </message>
    <message>
        <source>Of the steps of a pool only so many run at once, as the preferences say.</source>
        <translation>Von den Schritten eines Pools laufen nur so viele zugleich, wie die Einstellungen sagen.</translation>
    </message>
    <message>
        <source>Step &amp;name:</source>
        <translation>&amp;Name des Schritts:</translation>
    </message>
    <message>
        <source>&amp;Command:</source>
        <translation>&amp;Befehl:</translation>
    </message>
    <message>
        <source>&amp;Inputs:</source>
        <translation>&amp;Eingaben:</translation>
    </message>
    <message>
        <source>&amp;Outputs:</source>
        <translation>A&amp;usgaben:</translation>
    </message>
    <message>
        <source>&amp;Pool:</source>
        <translation>&amp;Pool:</translation>
    </message>
</context>
<context>
    <name>StepModel</name>
    <message>
        <source>This step is the build command of the file &quot;%1&quot;. It is part of the file&apos;s description in the component file and cannot be changed here.</source>
        <translation>Dieser Schritt ist der Build-Befehl der Datei „%1“. Er gehört zur Beschreibung der Datei in der Komponentendatei und kann hier nicht geändert werden.</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>Schritt</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Inputs</source>
        <translation>Eingaben</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Ausgaben</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
</context>
<context>
    <name>StepStates</name>
    <message>
        <source>Ended</source>
        <translation>Beendet</translation>
    </message>
    <message>
        <source>Running, %1 s</source>
        <translation>Läuft, %1 s</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
</context>
<context>
    <name>SuddenEnd</name>
    <message>
        <source>The program is ended by a signal: %1</source>
        <translation>Das Programm wird durch ein Signal beendet: %1</translation>
    </message>
    <message>
        <source>The program is ended from outside, as when its display is gone</source>
        <translation>Das Programm wird von außen beendet, etwa weil seine Anzeige fort ist</translation>
    </message>
    <message>
        <source>The changes in &quot;%1&quot; are lost</source>
        <translation>Die Änderungen in „%1“ sind verloren</translation>
    </message>
    <message>
        <source>The changes in &quot;%1&quot; are in &quot;%2&quot;</source>
        <translation>Die Änderungen in „%1“ liegen in „%2“</translation>
    </message>
    <message>
        <source>The changes in &quot;%1&quot; cannot be kept: %2</source>
        <translation>Die Änderungen in „%1“ können nicht aufgehoben werden: %2</translation>
    </message>
    <message>
        <source>The changes of the design &quot;%1&quot; are in &quot;%2&quot;</source>
        <translation>Die Änderungen des Designs „%1“ liegen in „%2“</translation>
    </message>
    <message>
        <source>The changes of the design &quot;%1&quot; cannot be kept: %2</source>
        <translation>Die Änderungen des Designs „%1“ können nicht aufgehoben werden: %2</translation>
    </message>
</context>
<context>
    <name>TabMenu</name>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Close &amp;Others</source>
        <translation>&amp;Andere schließen</translation>
    </message>
    <message>
        <source>Close &amp;All</source>
        <translation>A&amp;lle schließen</translation>
    </message>
    <message>
        <source>Copy &amp;Path</source>
        <translation>&amp;Pfad kopieren</translation>
    </message>
    <message>
        <source>Show in &amp;Folder</source>
        <translation>Im &amp;Ordner zeigen</translation>
    </message>
</context>
<context>
    <name>TextCoding</name>
    <message>
        <source>it is not text, since it holds a zero byte</source>
        <translation>sie ist kein Text, denn sie enthält ein Nullbyte</translation>
    </message>
    <message>
        <source>it is not text, since it holds too many control characters</source>
        <translation>sie ist kein Text, denn sie enthält zu viele Steuerzeichen</translation>
    </message>
    <message>
        <source>Latin-1</source>
        <translation>Latin-1</translation>
    </message>
    <message>
        <source>UTF-8 with BOM</source>
        <translation>UTF-8 mit BOM</translation>
    </message>
    <message>
        <source>UTF-8</source>
        <translation>UTF-8</translation>
    </message>
    <message>
        <source>UTF-16 LE</source>
        <translation>UTF-16 LE</translation>
    </message>
    <message>
        <source>UTF-16 BE</source>
        <translation>UTF-16 BE</translation>
    </message>
</context>
<context>
    <name>TextEdit</name>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
</context>
<context>
    <name>TextFile</name>
    <message>
        <source>it is a device or a pipe</source>
        <translation>sie ist ein Gerät oder eine Pipe</translation>
    </message>
    <message>
        <source>it is larger than %1</source>
        <translation>sie ist größer als %1</translation>
    </message>
    <message>
        <source>it has a line of more than %L1 characters</source>
        <translation>sie hat eine Zeile von mehr als %L1 Zeichen</translation>
    </message>
    <message>
        <source>Cannot open &quot;%1&quot;: %2</source>
        <translation>„%1“ kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>Cannot write &quot;%1&quot;: line %2 holds &quot;%3&quot;, and the file is Latin-1, since it was not valid UTF-8</source>
        <translation>„%1“ kann nicht geschrieben werden: Zeile %2 enthält „%3“, und die Datei ist Latin-1, denn sie war kein gültiges UTF-8</translation>
    </message>
</context>
<context>
    <name>TextFind</name>
    <message>
        <source>Find:</source>
        <translation>Suchen:</translation>
    </message>
    <message>
        <source>not found</source>
        <translation>nicht gefunden</translation>
    </message>
</context>
<context>
    <name>TextKeeper</name>
    <message>
        <source>Texts that are not saved cannot be kept aside: %1</source>
        <translation>Nicht gespeicherte Texte können nicht aufgehoben werden: %1</translation>
    </message>
</context>
<context>
    <name>TextPage</name>
    <message>
        <source>Cannot write &quot;%1&quot;: %2</source>
        <translation>„%1“ kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>you may not write to the file</source>
        <translation>Sie dürfen die Datei nicht schreiben</translation>
    </message>
    <message>
        <source>%1, too large to be coloured</source>
        <translation>%1, zu groß, um gefärbt zu werden</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <translation>&amp;Neu laden</translation>
    </message>
    <message>
        <source>&amp;Keep Mine</source>
        <translation>Meinen &amp;behalten</translation>
    </message>
    <message>
        <source>Save An&amp;yway</source>
        <translation>&amp;Trotzdem speichern</translation>
    </message>
    <message>
        <source>Show &amp;Difference</source>
        <translation>&amp;Unterschied zeigen</translation>
    </message>
    <message>
        <source>Write A&amp;gain</source>
        <translation>Noch einmal &amp;schreiben</translation>
    </message>
    <message>
        <source>%1. The text that it had is kept here.</source>
        <translation>%1. Der Text, den sie hatte, bleibt hier.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no longer on disk. Its text is kept here.</source>
        <translation>„%1“ ist nicht mehr auf der Platte. Der Text bleibt hier.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was changed on disk by another program, and has changes here that are not saved.</source>
        <translation>„%1“ wurde von einem anderen Programm auf der Platte geändert und hat hier Änderungen, die nicht gespeichert sind.</translation>
    </message>
    <message>
        <source>Read-only: %1.</source>
        <translation>Schreibgeschützt: %1.</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>Coding</source>
        <translation>Codierung</translation>
    </message>
    <message>
        <source>Save &quot;%1&quot; from now on as:</source>
        <translation>„%1“ von nun an speichern als:</translation>
    </message>
    <message>
        <source>Save as &amp;UTF-8</source>
        <translation>Als &amp;UTF-8 speichern</translation>
    </message>
</context>
<context>
    <name>ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Full Screen</source>
        <translation>&amp;Vollbild</translation>
    </message>
</context>
<context>
    <name>WindowConsole</name>
    <message>
        <source>Tcl Console</source>
        <translation>Tcl-Konsole</translation>
    </message>
</context>
<context>
    <name>WindowEditorManager</name>
    <message>
        <source>it was opened for reading</source>
        <translation>sie wurde zum Lesen geöffnet</translation>
    </message>
    <message>
        <source>There is no window to open &quot;%1&quot; in</source>
        <translation>Es gibt kein Fenster, um „%1“ darin zu öffnen</translation>
    </message>
    <message>
        <source>There is no editor &quot;%1&quot;</source>
        <translation>Es gibt keinen Editor „%1“</translation>
    </message>
</context>
<context>
    <name>WindowLinks</name>
    <message>
        <source>A script is running. Stop it first, with Escape.</source>
        <translation>Ein Skript läuft. Halten Sie es zuerst an, mit Escape.</translation>
    </message>
    <message>
        <source>The procedure &quot;%1&quot; was not read from a file.</source>
        <translation>Die Prozedur „%1“ wurde nicht aus einer Datei gelesen.</translation>
    </message>
    <message>
        <source>There is no file &quot;%1&quot;.</source>
        <translation>Es gibt keine Datei „%1“.</translation>
    </message>
</context>
<context>
    <name>buildcalls</name>
    <message>
        <source>Delete these generated files from disk, for good, and from the design?</source>
        <translation>Diese erzeugten Dateien endgültig von der Platte und aus dem Design löschen?</translation>
    </message>
    <message>
        <source>Not Cleaned</source>
        <translation>Nicht gelöscht</translation>
    </message>
    <message>
        <source>Cleaning Report</source>
        <translation>Bericht über das Löschen</translation>
    </message>
</context>
<context>
    <name>closing</name>
    <message>
        <source>and others</source>
        <translation>und andere</translation>
    </message>
    <message>
        <source>%1 (changed only by %2)</source>
        <translation>%1 (nur von %2 geändert)</translation>
    </message>
    <message>
        <source>Unsaved Changes</source>
        <translation>Nicht gespeicherte Änderungen</translation>
    </message>
    <message>
        <source>The design &quot;%1&quot; has changes that are not saved.</source>
        <translation>Das Design „%1“ hat Änderungen, die nicht gespeichert sind.</translation>
    </message>
    <message numerus="yes">
        <source>%n designs have changes that are not saved.</source>
        <translation>
            <numerusform>%n Design hat Änderungen, die nicht gespeichert sind.</numerusform>
            <numerusform>%n Designs haben Änderungen, die nicht gespeichert sind.</numerusform>
        </translation>
    </message>
    <message>
        <source>Saving writes them to:</source>
        <translation>Speichern schreibt sie nach:</translation>
    </message>
    <message>
        <source>&amp;Save and Close</source>
        <translation>&amp;Speichern und schließen</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>&amp;Discard All</source>
        <translation>Alle &amp;verwerfen</translation>
    </message>
    <message>
        <source>Not Closed</source>
        <translation>Nicht geschlossen</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>Not everything could be saved.</source>
        <translation>Nicht alles konnte gespeichert werden.</translation>
    </message>
    <message>
        <source>When you close anyway, what was not saved of a design with a component file goes to a copy in the backups folder:</source>
        <translation>Wenn Sie trotzdem schließen, kommt das, was von einem Design mit Komponentendatei nicht gespeichert ist, in eine Kopie im Ordner der Sicherungen:</translation>
    </message>
    <message>
        <source>Close &amp;Anyway</source>
        <translation>&amp;Trotzdem schließen</translation>
    </message>
    <message>
        <source>Unsaved Project</source>
        <translation>Nicht gespeichertes Projekt</translation>
    </message>
    <message>
        <source>The project &quot;%1&quot; was never saved.</source>
        <translation>Das Projekt „%1“ wurde noch nie gespeichert.</translation>
    </message>
    <message>
        <source>The project &quot;%1&quot; has changes that are not saved.</source>
        <translation>Das Projekt „%1“ hat Änderungen, die nicht gespeichert sind.</translation>
    </message>
    <message>
        <source>Without saving, the list of its designs is lost. The designs themselves are saved on their own.</source>
        <translation>Ohne Speichern ist die Liste seiner Designs verloren. Die Designs selbst werden für sich gespeichert.</translation>
    </message>
    <message>
        <source>The changes of the project &quot;%1&quot; are given up</source>
        <translation>Die Änderungen des Projekts „%1“ werden aufgegeben</translation>
    </message>
</context>
<context>
    <name>configurationcalls</name>
    <message>
        <source>Name of the build configuration:</source>
        <translation>Name der Build-Konfiguration:</translation>
    </message>
    <message>
        <source>%1 copy</source>
        <translation>%1 Kopie</translation>
    </message>
    <message>
        <source>%1 copy %2</source>
        <translation>%1 Kopie %2</translation>
    </message>
    <message>
        <source>New Build Configuration</source>
        <translation>Neue Build-Konfiguration</translation>
    </message>
    <message>
        <source>Not Added</source>
        <translation>Nicht hinzugefügt</translation>
    </message>
    <message>
        <source>Duplicate Build Configuration</source>
        <translation>Build-Konfiguration duplizieren</translation>
    </message>
    <message>
        <source>Rename Build Configuration</source>
        <translation>Build-Konfiguration umbenennen</translation>
    </message>
    <message>
        <source>Not Renamed</source>
        <translation>Nicht umbenannt</translation>
    </message>
    <message>
        <source>Remove Build Configuration</source>
        <translation>Build-Konfiguration entfernen</translation>
    </message>
    <message>
        <source>Remove the build configuration &quot;%1&quot; from the design &quot;%2&quot;?</source>
        <translation>Die Build-Konfiguration „%1“ aus dem Design „%2“ entfernen?</translation>
    </message>
    <message>
        <source>What builds have made stays on disk.</source>
        <translation>Was Builds erzeugt haben, bleibt auf der Platte.</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Not Removed</source>
        <translation>Nicht entfernt</translation>
    </message>
</context>
<context>
    <name>designprotection</name>
    <message>
        <source>it is the component file of the design &quot;%1&quot;, which is open</source>
        <translation>sie ist die Komponentendatei des Designs „%1“, das offen ist</translation>
    </message>
    <message>
        <source>it belongs to the design &quot;%1&quot;, which is read-only</source>
        <translation>sie gehört zum Design „%1“, das schreibgeschützt ist</translation>
    </message>
</context>
<context>
    <name>designsaving</name>
    <message>
        <source>Not Saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>Saved the project &quot;%1&quot;</source>
        <translation>Das Projekt „%1“ ist gespeichert</translation>
    </message>
    <message>
        <source>The design &quot;%1&quot; has no component file</source>
        <translation>Das Design „%1“ hat keine Komponentendatei</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
</context>
<context>
    <name>filedialogs</name>
    <message>
        <source>Projects (*.xml);;All files (*)</source>
        <translation>Projekte (*.xml);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Open Designs, Projects and Texts</source>
        <translation>Designs, Projekte und Texte öffnen</translation>
    </message>
    <message>
        <source>All files (*);;Component and project files (*.xml)</source>
        <translation>Alle Dateien (*);;Komponenten- und Projektdateien (*.xml)</translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation>Projekt öffnen</translation>
    </message>
    <message>
        <source>Save Project As</source>
        <translation>Projekt speichern unter</translation>
    </message>
</context>
<context>
    <name>helptexts</name>
    <message>
        <source># The Window

**Modes** on the left: Designs has the tree and the editors, Scripting the Tcl console. The tree stays beside both.

**The tree** shows the open designs with their files, folders, properties and build configurations. What is active is bold. Each row has a menu; Shift+F10 opens it. The line above finds by name, path and category.

**Editors** open with a double click. A text is kept aside while it is not saved, and is offered again after a crash. Tab indents the selected lines, Ctrl+/ makes them comments, Ctrl+\\ splits the page.

**Log, Issues and Journal** are below. A file with a line leads there with a click or Return. The journal has what you change as the commands that do it; it can be copied, kept as a script and run again.

**Scripts** are the Tcl files of the session&apos;s folder Scripts. While one runs, the window can be looked at and Stop ends it.

**Build** makes what the active configuration describes, with Ninja.

**Find**: Ctrl+K goes to files, designs, commands, scripts and settings by name.
</source>
        <translation># Das Fenster

**Modi** links: Designs hat den Baum und die Editoren, Scripting die Tcl-Konsole. Der Baum bleibt neben beiden.

**Der Baum** zeigt die offenen Designs mit ihren Dateien, Ordnern, Eigenschaften und Build-Konfigurationen. Was aktiv ist, ist fett. Jede Zeile hat ein Menü; Umschalt+F10 öffnet es. Die Zeile darüber findet nach Name, Pfad und Kategorie.

**Editoren** öffnen sich mit einem Doppelklick. Ein Text wird aufgehoben, solange er nicht gespeichert ist, und nach einem Absturz wieder angeboten. Tab rückt die ausgewählten Zeilen ein, Strg+/ macht sie zu Kommentaren, Strg+\\ teilt die Seite.

**Protokoll, Meldungen und Journal** sind unten. Eine Datei mit einer Zeile führt mit einem Klick oder der Eingabetaste dorthin. Das Journal hat, was Sie ändern, als die Befehle, die es tun; es kann kopiert, als Skript behalten und noch einmal ausgeführt werden.

**Skripte** sind die Tcl-Dateien im Ordner Scripts der Sitzung. Während eines läuft, kann man das Fenster ansehen, und Anhalten beendet es.

**Erstellen** macht mit Ninja, was die aktive Konfiguration beschreibt.

**Suchen**: Strg+K geht zu Dateien, Designs, Befehlen, Skripten und Einstellungen nach Namen.
</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Aktion</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Taste</translation>
    </message>
</context>
<context>
    <name>lineends</name>
    <message>
        <source>%1, mixed</source>
        <translation>%1, gemischt</translation>
    </message>
</context>
<context>
    <name>manualpages</name>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>All that &quot;help&quot; lists</source>
        <translation>Alles, was „help“ auflistet</translation>
    </message>
</context>
<context>
    <name>messages</name>
    <message>
        <source>No program of the desktop shows &quot;%1&quot;</source>
        <translation>Kein Programm des Desktops zeigt „%1“</translation>
    </message>
</context>
<context>
    <name>opening</name>
    <message>
        <source>Not Now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>Not Opened</source>
        <translation>Nicht geöffnet</translation>
    </message>
</context>
<context>
    <name>placeopening</name>
    <message>
        <source>&quot;%1&quot; has no line %2; it ends at line %3.</source>
        <translation>„%1“ hat keine Zeile %2; die letzte ist Zeile %3.</translation>
    </message>
</context>
<context>
    <name>questions</name>
    <message numerus="yes">
        <source>... and %n more</source>
        <translation>
            <numerusform>... und eine weitere</numerusform>
            <numerusform>... und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>&amp;Delete for Good</source>
        <translation>&amp;Endgültig löschen</translation>
    </message>
    <message>
        <source>Delete from Disk</source>
        <translation>Von der Platte löschen</translation>
    </message>
    <message>
        <source>Move to &amp;Trash</source>
        <translation>In den &amp;Papierkorb</translation>
    </message>
    <message>
        <source>Remove from Design</source>
        <translation>Aus dem Design entfernen</translation>
    </message>
    <message>
        <source>Remove this item from its design? Nothing is deleted from disk.</source>
        <translation>Diesen Eintrag aus seinem Design entfernen? Von der Platte wird nichts gelöscht.</translation>
    </message>
    <message>
        <source>Remove these items from their design? Nothing is deleted from disk.</source>
        <translation>Diese Einträge aus ihrem Design entfernen? Von der Platte wird nichts gelöscht.</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
</context>
<context>
    <name>replacing</name>
    <message>
        <source>&quot;%1&quot; is read-only: %2</source>
        <translation>„%1“ ist schreibgeschützt: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has changed since it was searched.</source>
        <translation>„%1“ hat sich geändert, seit darin gesucht wurde.</translation>
    </message>
</context>
<context>
    <name>runAgain</name>
    <message>
        <source>Entries were run again, of which one has failed; what those before it did is not here</source>
        <translation>Einträge wurden noch einmal ausgeführt, von denen einer fehlgeschlagen ist; was die davor getan haben, steht hier nicht</translation>
    </message>
</context>
<context>
    <name>running</name>
    <message>
        <source>The console is running another one.</source>
        <translation>Die Konsole führt einen anderen aus.</translation>
    </message>
    <message>
        <source>A script is changing the designs.</source>
        <translation>Ein Skript ändert gerade die Designs.</translation>
    </message>
</context>
<context>
    <name>runstates</name>
    <message>
        <source>Idle</source>
        <translation>Untätig</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>Läuft</translation>
    </message>
    <message>
        <source>Completed</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
</context>
<context>
    <name>scriptfiles</name>
    <message>
        <source>&quot;%1&quot; is not below the folder of scripts.</source>
        <translation>„%1“ liegt nicht unter dem Ordner der Skripte.</translation>
    </message>
    <message>
        <source>There is a script &quot;%1&quot; already.</source>
        <translation>Es gibt schon ein Skript „%1“.</translation>
    </message>
    <message>
        <source>The folder &quot;%1&quot; cannot be made.</source>
        <translation>Der Ordner „%1“ kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>Name of the script:</source>
        <translation>Name des Skripts:</translation>
    </message>
    <message>
        <source>Not Opened</source>
        <translation>Nicht geöffnet</translation>
    </message>
</context>
<context>
    <name>unsavedchanges</name>
    <message>
        <source>&quot;%1&quot; has changes that are not saved.</source>
        <translation>„%1“ hat Änderungen, die nicht gespeichert sind.</translation>
    </message>
    <message numerus="yes">
        <source>%n files have changes that are not saved.</source>
        <translation>
            <numerusform>%n Datei hat Änderungen, die nicht gespeichert sind.</numerusform>
            <numerusform>%n Dateien haben Änderungen, die nicht gespeichert sind.</numerusform>
        </translation>
    </message>
    <message>
        <source>Without saving, they are lost.</source>
        <translation>Ohne Speichern sind sie verloren.</translation>
    </message>
    <message>
        <source>Without saving, the changes are lost.</source>
        <translation>Ohne Speichern sind die Änderungen verloren.</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und eine weitere</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>Unsaved Changes</source>
        <translation>Nicht gespeicherte Änderungen</translation>
    </message>
    <message>
        <source>&amp;Save All</source>
        <translation>Alle &amp;speichern</translation>
    </message>
    <message>
        <source>&amp;Discard All</source>
        <translation>Alle &amp;verwerfen</translation>
    </message>
</context>
<context>
    <name>unsavedpages</name>
    <message>
        <source>Unsaved Changes</source>
        <translation>Nicht gespeicherte Änderungen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has changes that are not saved.</source>
        <translation>„%1“ hat Änderungen, die nicht gespeichert sind.</translation>
    </message>
    <message numerus="yes">
        <source>%n pages have changes that are not saved.</source>
        <translation>
            <numerusform>%n Seite hat Änderungen, die nicht gespeichert sind.</numerusform>
            <numerusform>%n Seiten haben Änderungen, die nicht gespeichert sind.</numerusform>
        </translation>
    </message>
    <message>
        <source>A build takes what is on disk.</source>
        <translation>Ein Build nimmt, was auf der Platte ist.</translation>
    </message>
    <message>
        <source>&amp;Save and Build</source>
        <translation>&amp;Speichern und erstellen</translation>
    </message>
    <message>
        <source>&amp;Build Without Saving</source>
        <translation>Ohne Speichern &amp;erstellen</translation>
    </message>
    <message>
        <source>Do this &amp;always, without asking</source>
        <translation>Das &amp;immer tun, ohne zu fragen</translation>
    </message>
</context>
</TS>
