<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_US">
<context>
    <name>hostkit</name>
    <message>
        <source>%1: expected %2</source>
        <translation>%1: erwartet wird %2</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>ein Text</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>true oder false</translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation>eine ganze Zahl</translation>
    </message>
    <message>
        <source>0, 90, 180 or 270</source>
        <translation>0, 90, 180 oder 270</translation>
    </message>
    <message>
        <source>at least one second</source>
        <translation>mindestens eine Sekunde</translation>
    </message>
    <message>
        <source>a colour as &quot;#RRGGBB&quot;</source>
        <translation>eine Farbe als &quot;#RRGGBB&quot;</translation>
    </message>
    <message>
        <source>a list</source>
        <translation>eine Liste</translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation>Zeile %1, Spalte %2</translation>
    </message>
    <message>
        <source>larger than 64 MB</source>
        <translation>größer als 64 MB</translation>
    </message>
    <message>
        <source>not a slideshow file: no &quot;format&quot;: &quot;vellora-show&quot;</source>
        <translation>keine Diashow-Datei: &quot;format&quot;: &quot;vellora-show&quot; fehlt</translation>
    </message>
    <message>
        <source>made by a newer version of this program</source>
        <translation>mit einer neueren Version dieses Programms erstellt</translation>
    </message>
    <message>
        <source>%1: names no photo</source>
        <translation>%1: nennt kein Foto</translation>
    </message>
    <message>
        <source>cannot write %1</source>
        <translation>%1 kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>there is no folder %1</source>
        <translation>Den Ordner %1 gibt es nicht.</translation>
    </message>
    <message>
        <source>the folder %1 is read-only</source>
        <translation>In den Ordner %1 kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>Der Datenträger ist voll.</translation>
    </message>
    <message>
        <source>has more than %1 photos</source>
        <translation>hat mehr als %1 Fotos</translation>
    </message>
    <message>
        <source>a shorter text; its end is cut off</source>
        <translation>einen kürzeren Text; sein Ende fällt weg</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>eine Zahl</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>%1: the path is too long</source>
        <translation>%1: Der Pfad ist zu lang</translation>
    </message>
    <message>
        <source>the names of its project file are taken</source>
        <translation>die Namen seiner Projektdatei sind vergeben</translation>
    </message>
</context>
<context>
    <name>vellora</name>
    <message>
        <source>no such file</source>
        <translation>Datei nicht gefunden</translation>
    </message>
    <message>
        <source>is a folder</source>
        <translation>ist ein Ordner</translation>
    </message>
    <message>
        <source>is not a regular file</source>
        <translation>ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>may not be read</source>
        <translation>Leserecht fehlt</translation>
    </message>
    <message>
        <source>is empty</source>
        <translation>ist leer</translation>
    </message>
    <message>
        <source>is not a picture that can be read</source>
        <translation>ist kein lesbares Bild</translation>
    </message>
    <message>
        <source>has %1 x %2 pixels, more than the %3 million that are read</source>
        <translation>hat %1 x %2 Pixel; gelesen werden höchstens %3 Millionen</translation>
    </message>
</context>
<context>
    <name>vellora::desktop::ExportDialog</name>
    <message>
        <source>&amp;Each photo&apos;s own size</source>
        <translation>O&amp;riginalgröße jedes Fotos</translation>
    </message>
    <message>
        <source>Width in pixels</source>
        <translation>Breite in Pixel</translation>
    </message>
    <message>
        <source>Height in pixels</source>
        <translation>Höhe in Pixel</translation>
    </message>
    <message>
        <source>Start names with the &amp;place in the show</source>
        <translation>Dateinamen mit der &amp;Position in der Diashow beginnen</translation>
    </message>
    <message numerus="yes">
        <source>Export %Ln photo(s)</source>
        <translation>
            <numerusform>%Ln Foto exportieren</numerusform>
            <numerusform>%Ln Fotos exportieren</numerusform>
        </translation>
    </message>
    <message>
        <source>Picture as large as fits</source>
        <translation>Bild so groß wie möglich</translation>
    </message>
    <message>
        <source>Exactly this size, photo fitted inside</source>
        <translation>Genau diese Größe, Foto eingepasst</translation>
    </message>
    <message>
        <source>Exactly this size, filled by the photo</source>
        <translation>Genau diese Größe, vom Foto ausgefüllt</translation>
    </message>
    <message>
        <source>B&amp;rowse...</source>
        <translation>&amp;Durchsuchen...</translation>
    </message>
    <message>
        <source>&amp;Folder:</source>
        <translation>&amp;Ordner:</translation>
    </message>
    <message>
        <source>&amp;Size in pixels:</source>
        <translation>&amp;Größe in Pixel:</translation>
    </message>
    <message>
        <source>F&amp;it:</source>
        <translation>&amp;Einpassung:</translation>
    </message>
    <message>
        <source>JPEG &amp;quality:</source>
        <translation>JPEG-&amp;Qualität:</translation>
    </message>
    <message>
        <source>E&amp;xport</source>
        <translation>E&amp;xportieren</translation>
    </message>
    <message>
        <source>Export to</source>
        <translation>Exportieren nach</translation>
    </message>
    <message>
        <source>The folder cannot be written to.</source>
        <translation>In diesen Ordner kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>%L1 by %L2 pixels are too many. A picture has at most %L3 million.</source>
        <translation>%L1 mal %L2 Pixel sind zu viele. Ein Bild hat höchstens %L3 Millionen.</translation>
    </message>
</context>
<context>
    <name>vellora::desktop::ExportJob</name>
    <message>
        <source>the picture cannot be decoded, or %1 cannot be written</source>
        <translation>Das Bild kann nicht gelesen oder %1 nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>the program that renders it does not run</source>
        <translation>Das Programm, das die Bilder berechnet, lässt sich nicht starten.</translation>
    </message>
</context>
<context>
    <name>vellora::desktop::ExportProgress</name>
    <message>
        <source>%1 s left</source>
        <translation>noch %1 s</translation>
    </message>
    <message>
        <source>%1 min %2 s left</source>
        <translation>noch %1 min %2 s</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>%L1 of %L2: %3</source>
        <translation>%L1 von %L2: %3</translation>
    </message>
    <message>
        <source>%L1 photos a minute, %2</source>
        <translation>%L1 Fotos pro Minute, %2</translation>
    </message>
    <message numerus="yes">
        <source>Cancelled after %Ln picture(s).</source>
        <translation>
            <numerusform>Nach %Ln Bild abgebrochen.</numerusform>
            <numerusform>Nach %Ln Bildern abgebrochen.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln picture(s) exported.</source>
        <translation>
            <numerusform>%Ln Bild exportiert.</numerusform>
            <numerusform>%Ln Bilder exportiert.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln photo(s) could not be exported:</source>
        <translation>
            <numerusform>%Ln Foto konnte nicht exportiert werden:</numerusform>
            <numerusform>%Ln Fotos konnten nicht exportiert werden:</numerusform>
        </translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message numerus="yes">
        <source>%Ln photo(s) could be read in part only, the file is damaged or ends early:</source>
        <translation>
            <numerusform>%Ln Foto konnte nur zum Teil gelesen werden, die Datei ist beschädigt oder endet zu früh:</numerusform>
            <numerusform>%Ln Fotos konnten nur zum Teil gelesen werden, die Dateien sind beschädigt oder enden zu früh:</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>vellora::desktop::MainWindow</name>
    <message numerus="yes">
        <source>%Ln photo(s)</source>
        <translation>
            <numerusform>%Ln Foto</numerusform>
            <numerusform>%Ln Fotos</numerusform>
        </translation>
    </message>
    <message>
        <source>%L1 of %L2 selected</source>
        <translation>%L1 von %L2 ausgewählt</translation>
    </message>
    <message>
        <source>Unsaved changes</source>
        <translation>Nicht gespeicherte Änderungen</translation>
    </message>
    <message>
        <source>The show &quot;%1&quot; has changes that are not saved.</source>
        <translation>Die Diashow „%1“ enthält nicht gespeicherte Änderungen.</translation>
    </message>
    <message>
        <source>Open a show</source>
        <translation>Diashow öffnen</translation>
    </message>
    <message>
        <source>Slideshows (*.vshow)</source>
        <translation>Diashows (*.vshow)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be opened.</source>
        <translation>„%1“ kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Another window works on this show. Open a copy?</source>
        <translation>Diese Diashow ist bereits in einem anderen Fenster geöffnet. Eine Kopie öffnen?</translation>
    </message>
    <message>
        <source>Some of the show could not be read.</source>
        <translation>Ein Teil der Diashow konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>A show that was never saved</source>
        <translation>Eine nie gespeicherte Diashow</translation>
    </message>
    <message>
        <source>The show &quot;%1&quot;</source>
        <translation>Die Diashow „%1“</translation>
    </message>
    <message>
        <source>Recover changes</source>
        <translation>Änderungen wiederherstellen</translation>
    </message>
    <message>
        <source>%1 has changes of %2 that were not saved.</source>
        <translation>%1 enthält nicht gespeicherte Änderungen vom %2.</translation>
    </message>
    <message>
        <source>Recover</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Delete changes</source>
        <translation>Änderungen löschen</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>The changes cannot be read.</source>
        <translation>Die Änderungen können nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>The show could not be saved. What was on disk is unchanged.</source>
        <translation>Die Diashow konnte nicht gespeichert werden. Die Dateien auf dem Datenträger sind unverändert.</translation>
    </message>
    <message>
        <source>Save the show</source>
        <translation>Diashow speichern</translation>
    </message>
    <message>
        <source>Add photos</source>
        <translation>Fotos hinzufügen</translation>
    </message>
    <message>
        <source>Photos (*.jpg *.jpeg *.png *.tif *.tiff *.bmp *.webp *.gif);;All files (*)</source>
        <translation>Fotos (*.jpg *.jpeg *.png *.tif *.tiff *.bmp *.webp *.gif);;Alle Dateien (*)</translation>
    </message>
    <message numerus="yes">
        <source>%Ln file(s) are no readable photos.</source>
        <translation>
            <numerusform>%Ln Datei ist kein lesbares Foto.</numerusform>
            <numerusform>%Ln Dateien sind keine lesbaren Fotos.</numerusform>
        </translation>
    </message>
    <message>
        <source>Locate %1</source>
        <translation>%1 suchen</translation>
    </message>
    <message>
        <source>About Vellora</source>
        <translation>Über Vellora</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Vellora %1&lt;/h3&gt;&lt;p&gt;Slideshows of photos with words. Photos are never changed: edits are kept beside them.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Vellora %1&lt;/h3&gt;&lt;p&gt;Diashows aus Fotos mit Texten. Die Fotos selbst werden nie verändert: Bearbeitungen werden daneben gespeichert.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&amp;Show</source>
        <translation>Dia&amp;show</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Abspielen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About Vellora</source>
        <translation>&amp;Über Vellora</translation>
    </message>
    <message>
        <source>Photos of the show</source>
        <translation>Fotos der Diashow</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;New show</source>
        <translation>&amp;Neue Diashow</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Speichern &amp;unter...</translation>
    </message>
    <message>
        <source>&amp;Export pictures...</source>
        <translation>Bilder e&amp;xportieren...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Add photos...</source>
        <translation>Fotos &amp;hinzufügen...</translation>
    </message>
    <message>
        <source>&amp;Edit photo...</source>
        <translation>Foto &amp;bearbeiten...</translation>
    </message>
    <message>
        <source>&amp;Remove from show</source>
        <translation>Aus der Diashow &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Locate missing photo...</source>
        <translation>Fehlendes Foto &amp;suchen...</translation>
    </message>
    <message>
        <source>&amp;Select all</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>&amp;Preferences...</source>
        <translation>Einste&amp;llungen...</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>No shows yet</source>
        <translation>Noch keine Diashows</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Re&amp;do</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Move &amp;back</source>
        <translation>Nach &amp;vorn verschieben</translation>
    </message>
    <message>
        <source>Move &amp;forward</source>
        <translation>Nach h&amp;inten verschieben</translation>
    </message>
    <message>
        <source>The show is open on the computer &quot;%1&quot;, or was when that stopped. Open a copy?</source>
        <translation>Diese Diashow ist auf dem Computer „%1“ geöffnet, oder war es, als er ausfiel. Eine Kopie öffnen?</translation>
    </message>
    <message>
        <source>&quot;%1&quot; exists already. Replace it?</source>
        <translation>„%1“ ist bereits vorhanden. Ersetzen?</translation>
    </message>
    <message numerus="yes">
        <source>%Ln photo(s) found again</source>
        <translation>
            <numerusform>%Ln Foto wiedergefunden</numerusform>
            <numerusform>%Ln Fotos wiedergefunden</numerusform>
        </translation>
    </message>
    <message>
        <source>The show could not be prepared for the export.</source>
        <translation>Die Diashow konnte nicht für den Export vorbereitet werden.</translation>
    </message>
    <message>
        <source>Another program has changed the show &quot;%1&quot; since it was opened here.</source>
        <translation>Die Diashow „%1“ wurde seit dem Öffnen von einem anderen Programm geändert.</translation>
    </message>
    <message>
        <source>&amp;Replace it</source>
        <translation>E&amp;rsetzen</translation>
    </message>
    <message>
        <source>The show itself is no longer there.</source>
        <translation>Die Diashow selbst ist nicht mehr da.</translation>
    </message>
    <message>
        <source>The show was saved after that.</source>
        <translation>Die Diashow wurde danach gespeichert.</translation>
    </message>
</context>
<context>
    <name>vellora::desktop::Player</name>
    <message>
        <source>Slideshow</source>
        <translation>Diashow</translation>
    </message>
    <message>
        <source>%1 cannot be shown</source>
        <translation>%1 kann nicht angezeigt werden</translation>
    </message>
</context>
<context>
    <name>vellora::desktop::PreferencesDialog</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>&amp;Sprache:</translation>
    </message>
    <message>
        <source>For the program and the edit dialog. With a language file of your own the program itself speaks English or German, as the line &quot;code&quot; in the file&apos;s section &quot;LANGUAGE&quot; says.</source>
        <translation>Gilt für das Programm und den Bearbeitungsdialog. Bei einer eigenen Sprachdatei spricht das Programm selbst Deutsch oder Englisch, je nach der Zeile „code“ im Abschnitt „LANGUAGE“ der Datei.</translation>
    </message>
    <message>
        <source>&amp;Folder of text styles and clips:</source>
        <translation>&amp;Ordner der Textstile und Cliparts:</translation>
    </message>
    <message>
        <source>&amp;Background of new photos:</source>
        <translation>&amp;Hintergrund neuer Fotos:</translation>
    </message>
    <message>
        <source>B&amp;rowse...</source>
        <translation>&amp;Durchsuchen...</translation>
    </message>
    <message>
        <source>Styles and clips</source>
        <translation>Stile und Cliparts</translation>
    </message>
    <message>
        <source>As the system</source>
        <translation>Wie das System</translation>
    </message>
    <message>
        <source>Other language file...</source>
        <translation>Andere Sprachdatei...</translation>
    </message>
    <message>
        <source>Language file</source>
        <translation>Sprachdatei</translation>
    </message>
    <message>
        <source>Language files (*.ini)</source>
        <translation>Sprachdateien (*.ini)</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
</context>
<context>
    <name>vellora::desktop::ShowDocument</name>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>The edits cannot be read: %1: %2</source>
        <translation>Die Bearbeitungen können nicht gelesen werden: %1: %2</translation>
    </message>
    <message>
        <source>The edits are missing: %1</source>
        <translation>Die Bearbeitungen fehlen: %1</translation>
    </message>
    <message>
        <source>another window works on this show</source>
        <translation>Diese Diashow ist in einem anderen Fenster geöffnet.</translation>
    </message>
</context>
<context>
    <name>vellora::desktop::SlideDelegate</name>
    <message>
        <source>Not a readable photo</source>
        <translation>Kein lesbares Foto</translation>
    </message>
    <message>
        <source>Photo missing
Double-click to locate it</source>
        <translation>Foto fehlt
Doppelklicken, um es zu suchen</translation>
    </message>
</context>
<context>
    <name>vellora::desktop::SlideModel</name>
    <message>
        <source>
This file is missing. Its edits are kept.</source>
        <translation>
Diese Datei fehlt. Die Bearbeitungen bleiben erhalten.</translation>
    </message>
    <message>
        <source>Add photos</source>
        <translation>Fotos hinzufügen</translation>
    </message>
    <message>
        <source>Remove photos</source>
        <translation>Fotos entfernen</translation>
    </message>
    <message>
        <source>Move photos</source>
        <translation>Fotos verschieben</translation>
    </message>
</context>
<context>
    <name>vellora::desktop::SlideView</name>
    <message>
        <source>Drop photos or folders here,
or press Add photos</source>
        <translation>Fotos oder Ordner hierher ziehen
oder „Fotos hinzufügen“ wählen</translation>
    </message>
</context>
</TS>
