<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Cantorix</name>
    <message>
        <source>%1 Hz · %2 points</source>
        <translation>%1 Hz · %2 Punkte</translation>
    </message>
    <message>
        <source>%1 label</source>
        <translation>%1 Etikett</translation>
    </message>
    <message>
        <source>%1 labels</source>
        <translation>%1 Etiketten</translation>
    </message>
    <message>
        <source>%1 left on the disk</source>
        <translation>noch %1 auf dem Datenträger</translation>
    </message>
    <message>
        <source>%1 of %2 labels renamed.</source>
        <translation>%1 von %2 Etiketten umbenannt.</translation>
    </message>
    <message>
        <source>%1 sample lost</source>
        <translation>%1 Abtastwert verloren</translation>
    </message>
    <message>
        <source>%1 samples lost</source>
        <translation>%1 Abtastwerte verloren</translation>
    </message>
    <message>
        <source>%1 then %2</source>
        <translation>%1, dann %2</translation>
    </message>
    <message>
        <source>%1, %2 pixels</source>
        <translation>%1, %2 Pixel</translation>
    </message>
    <message>
        <source>%1: the time grid follows the zoomed window.</source>
        <translation>%1: das Zeitgitter folgt dem gezeigten Abschnitt.</translation>
    </message>
    <message>
        <source>&amp;Audio</source>
        <translation>&amp;Audio</translation>
    </message>
    <message>
        <source>&amp;Copy Picture</source>
        <translation>Bild &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Dynamic</source>
        <translation>&amp;Dynamik</translation>
    </message>
    <message>
        <source>&amp;Edit...</source>
        <translation>&amp;Ändern...</translation>
    </message>
    <message>
        <source>&amp;Enter into Log</source>
        <translation>Ins Protokoll &amp;eintragen</translation>
    </message>
    <message>
        <source>&amp;Grids</source>
        <translation>&amp;Gitter</translation>
    </message>
    <message>
        <source>&amp;Height</source>
        <translation>&amp;Höhe</translation>
    </message>
    <message>
        <source>&amp;Input</source>
        <translation>&amp;Eingang</translation>
    </message>
    <message>
        <source>&amp;Intensity</source>
        <translation>&amp;Intensität</translation>
    </message>
    <message>
        <source>&amp;LPC</source>
        <translation>&amp;LPC</translation>
    </message>
    <message>
        <source>&amp;LPC order</source>
        <translation>&amp;LPC-Ordnung</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>&amp;Optionen...</translation>
    </message>
    <message>
        <source>&amp;Pitch</source>
        <translation>&amp;Tonhöhe</translation>
    </message>
    <message>
        <source>&amp;Pitch All (Ctrl+L)</source>
        <translation>&amp;Pitch All (Ctrl+L)</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>A&amp;bspielen</translation>
    </message>
    <message>
        <source>&amp;Play One Second of the Selection</source>
        <translation>Eine Sekunde der Auswahl ab&amp;spielen</translation>
    </message>
    <message>
        <source>&amp;Rate</source>
        <translation>&amp;Rate</translation>
    </message>
    <message>
        <source>&amp;Rename...</source>
        <translation>&amp;Umbenennen...</translation>
    </message>
    <message>
        <source>&amp;Save Picture...</source>
        <translation>Bild &amp;speichern...</translation>
    </message>
    <message>
        <source>&amp;Tiers</source>
        <translation>&amp;Ebenen</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation>Ein&amp;heit</translation>
    </message>
    <message>
        <source>&amp;Update</source>
        <translation>Akt&amp;ualisieren</translation>
    </message>
    <message>
        <source>&amp;Width</source>
        <translation>&amp;Breite</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>&amp;Zeigen</translation>
    </message>
    <message>
        <source>&amp;milliseconds</source>
        <translation>&amp;Millisekunden</translation>
    </message>
    <message>
        <source>&amp;seconds</source>
        <translation>&amp;Sekunden</translation>
    </message>
    <message>
        <source>' %1 ' does not exist. Choose a file that exists.</source>
        <translation>' %1 ' gibt es nicht. Eine Datei wählen, die es gibt.</translation>
    </message>
    <message>
        <source>'%1' below the view is a running average that weights the end (%2).</source>
        <translation>'%1' unter der Ansicht ist ein laufendes Mittel, in dem das Ende mehr wiegt (%2).</translation>
    </message>
    <message>
        <source>'%1' has changed since then.</source>
        <translation>'%1' hat sich seither geändert.</translation>
    </message>
    <message>
        <source>'%1' has other samples than it had then.</source>
        <translation>'%1' hat andere Abtastwerte als damals.</translation>
    </message>
    <message>
        <source>, high</source>
        <translation>, oben</translation>
    </message>
    <message>
        <source>, low</source>
        <translation>, unten</translation>
    </message>
    <message>
        <source>A further tier "%1" is called "%2".</source>
        <translation>Eine weitere Ebene "%1" heißt "%2".</translation>
    </message>
    <message>
        <source>A label becomes</source>
        <translation>Ein Etikett wird</translation>
    </message>
    <message>
        <source>A label holds at most %1 bytes. Delete something, or press Esc.</source>
        <translation>Ein Etikett fasst höchstens %1 Bytes. Etwas löschen oder Esc drücken.</translation>
    </message>
    <message>
        <source>A label without text cannot be seen.</source>
        <translation>Ein Etikett ohne Text ist nicht zu sehen.</translation>
    </message>
    <message>
        <source>A recording has ten tiers, no room is left for "%1".</source>
        <translation>Eine Aufnahme hat zehn Ebenen, für "%1" ist kein Platz.</translation>
    </message>
    <message>
        <source>A recording of %1 from %2 was not saved.</source>
        <translation>Eine Aufnahme von %1 vom %2 wurde nicht gespeichert.</translation>
    </message>
    <message>
        <source>A recording runs: its level stands in the status bar.</source>
        <translation>Eine Aufnahme läuft: ihr Pegel steht in der Statuszeile.</translation>
    </message>
    <message>
        <source>A speech-analysis workstation for phoneticians and speech scientists.

Built with Qt %1.</source>
        <translation>Ein Arbeitsplatz zur Sprachsignalanalyse für Phonetik und Sprachwissenschaft.

Gebaut mit Qt %1.</translation>
    </message>
    <message>
        <source>A tier without a name is called "%1".</source>
        <translation>Eine Ebene ohne Namen heißt "%1".</translation>
    </message>
    <message>
        <source>A&amp;udio</source>
        <translation>A&amp;udio</translation>
    </message>
    <message>
        <source>Add the labels of a file of another program to their tiers</source>
        <translation>Die Etiketten aus der Datei eines anderen Programms in ihre Ebenen aufnehmen</translation>
    </message>
    <message>
        <source>Add the labels of a text file to a tier</source>
        <translation>Die Etiketten einer Textdatei in eine Ebene aufnehmen</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>All in use</source>
        <translation>Alle benutzten</translation>
    </message>
    <message>
        <source>All label files</source>
        <translation>Alle Etikettendateien</translation>
    </message>
    <message>
        <source>All recordings</source>
        <translation>Alle Aufnahmen</translation>
    </message>
    <message>
        <source>All tiers</source>
        <translation>Alle Ebenen</translation>
    </message>
    <message>
        <source>All windows</source>
        <translation>Alle Fenster</translation>
    </message>
    <message>
        <source>Amplitude max</source>
        <translation>Amplitude max.</translation>
    </message>
    <message>
        <source>Amplitude min</source>
        <translation>Amplitude min.</translation>
    </message>
    <message>
        <source>Analysis</source>
        <translation>Analyse</translation>
    </message>
    <message>
        <source>Another program has made a file of this name.</source>
        <translation>Ein anderes Programm hat eine Datei dieses Namens angelegt.</translation>
    </message>
    <message>
        <source>Another program is using it.</source>
        <translation>Ein anderes Programm benutzt sie.</translation>
    </message>
    <message>
        <source>Arrange Analysis Windows</source>
        <translation>Analysefenster anordnen</translation>
    </message>
    <message>
        <source>As the file shows</source>
        <translation>Wie es die Datei zeigt</translation>
    </message>
    <message>
        <source>At an edge of the main window, where it covers no recording</source>
        <translation>Am Rand des Hauptfensters, wo es keine Aufnahme verdeckt</translation>
    </message>
    <message>
        <source>Audacity label track</source>
        <translation>Audacity-Textspur</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>Audio pa&amp;ne (%)</source>
        <translation>A&amp;udiofeld (%)</translation>
    </message>
    <message>
        <source>AutoCorrolation method</source>
        <translation>AutoCorrolation-Methode</translation>
    </message>
    <message>
        <source>Band&amp;width</source>
        <translation>Band&amp;breite</translation>
    </message>
    <message>
        <source>Bandwidth %1 Hz (%2 points) hides formants (usual: %3 Hz, %4 points).</source>
        <translation>Bandbreite %1 Hz (%2 Punkte) verdeckt Formanten (üblich: %3 Hz, %4 Punkte).</translation>
    </message>
    <message>
        <source>Bitmap files (*.bmp)</source>
        <translation>Bitmapdateien (*.bmp)</translation>
    </message>
    <message>
        <source>Bitmaps (*.bmp)</source>
        <translation>Bitmaps (*.bmp)</translation>
    </message>
    <message>
        <source>Both edges have the same nearest zero crossing.</source>
        <translation>Beide Ränder haben denselben nächsten Nulldurchgang.</translation>
    </message>
    <message>
        <source>Both windows lie in one place (F6)</source>
        <translation>Beide Fenster liegen an einem Ort (F6)</translation>
    </message>
    <message>
        <source>Byte order</source>
        <translation>Bytefolge</translation>
    </message>
    <message>
        <source>Caps Lock</source>
        <translation>Feststelltaste</translation>
    </message>
    <message>
        <source>Cepstral method</source>
        <translation>Cepstral-Methode</translation>
    </message>
    <message>
        <source>Change text and looks of the selected label</source>
        <translation>Text und Aussehen des gewählten Etiketts ändern</translation>
    </message>
    <message>
        <source>Change the settings of this analysis</source>
        <translation>Die Einstellungen dieser Analyse ändern</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Kanäle</translation>
    </message>
    <message>
        <source>Choose printer and paper</source>
        <translation>Drucker und Papier wählen</translation>
    </message>
    <message>
        <source>Choose what the main view draws</source>
        <translation>Wählen, was die Hauptansicht zeichnet</translation>
    </message>
    <message>
        <source>Clipped %1 time, first at %2</source>
        <translation>%1 mal übersteuert, zuerst bei %2</translation>
    </message>
    <message>
        <source>Clipped %1 times, first at %2</source>
        <translation>%1 mal übersteuert, zuerst bei %2</translation>
    </message>
    <message>
        <source>Close &amp;Window</source>
        <translation>&amp;Fenster schließen</translation>
    </message>
    <message>
        <source>Close all documents and leave</source>
        <translation>Alle Dokumente schließen und beenden</translation>
    </message>
    <message>
        <source>Close the document</source>
        <translation>Das Dokument schließen</translation>
    </message>
    <message>
        <source>Close the hint</source>
        <translation>Hinweis schließen</translation>
    </message>
    <message>
        <source>Close the progress window</source>
        <translation>Das Fortschrittsfenster schließen</translation>
    </message>
    <message>
        <source>Close this window; the recording stays open</source>
        <translation>Dieses Fenster schließen; die Aufnahme bleibt offen</translation>
    </message>
    <message>
        <source>Coefficients of envelope and formants</source>
        <translation>Koeffizienten der Hüllkurve und der Formanten</translation>
    </message>
    <message>
        <source>Coefficients of the formants</source>
        <translation>Koeffizienten der Formanten</translation>
    </message>
    <message>
        <source>Colo&amp;urs</source>
        <translation>&amp;Farben</translation>
    </message>
    <message>
        <source>Colours from silence to the highest level</source>
        <translation>Farben von der Stille bis zum höchsten Pegel</translation>
    </message>
    <message>
        <source>Compute again from the recording as it is now</source>
        <translation>Neu aus der Aufnahme berechnen, wie sie jetzt ist</translation>
    </message>
    <message>
        <source>Continuity tolerance (%) = </source>
        <translation>Toleranz der Stetigkeit (%) = </translation>
    </message>
    <message>
        <source>Copy &amp;Readouts</source>
        <translation>A&amp;blesungen kopieren</translation>
    </message>
    <message>
        <source>Copy the picture to the clipboard</source>
        <translation>Das Bild in die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>Copy the selection to the clipboard</source>
        <translation>Die Auswahl in die Zwischenablage kopieren</translation>
    </message>
    <message>
        <source>Copy the values at the marker and the settings as text</source>
        <translation>Die Werte an der Marke und die Einstellungen als Text kopieren</translation>
    </message>
    <message>
        <source>Current tier: '%1'</source>
        <translation>Aktuelle Ebene: '%1'</translation>
    </message>
    <message>
        <source>Cursor %1    %2 Hz</source>
        <translation>Cursor %1    %2 Hz</translation>
    </message>
    <message>
        <source>Cursor %1    Pitch %2 Hz    Intensity %3 dB</source>
        <translation>Cursor %1    Tonhöhe %2 Hz    Intensität %3 dB</translation>
    </message>
    <message>
        <source>Cursor %1 Hz    FFT %2 dB    LPC %3 dB</source>
        <translation>Cursor %1 Hz    FFT %2 dB    LPC %3 dB</translation>
    </message>
    <message>
        <source>D&amp;ock</source>
        <translation>And&amp;ocken</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Defaults: as the program was always delivered.</source>
        <translation>Vorgaben: so, wie das Programm immer ausgeliefert wurde.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete Label</source>
        <translation>Etikett löschen</translation>
    </message>
    <message>
        <source>Delete it ?</source>
        <translation>Löschen ?</translation>
    </message>
    <message>
        <source>Delete the selected label</source>
        <translation>Das gewählte Etikett löschen</translation>
    </message>
    <message>
        <source>Display Options</source>
        <translation>Anzeigeoptionen</translation>
    </message>
    <message>
        <source>Draw</source>
        <translation>Zeichnen</translation>
    </message>
    <message>
        <source>Draw the LPC envelope</source>
        <translation>Die LPC-Hüllkurve zeichnen</translation>
    </message>
    <message>
        <source>Draw the formants</source>
        <translation>Die Formanten zeichnen</translation>
    </message>
    <message>
        <source>Draw the intensity</source>
        <translation>Die Intensität zeichnen</translation>
    </message>
    <message>
        <source>Draw the labels</source>
        <translation>Die Etiketten zeichnen</translation>
    </message>
    <message>
        <source>Draw the waveform</source>
        <translation>Die Wellenform zeichnen</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Duration: %1 ms
Length: %2 samples</source>
        <translation>Dauer: %1 ms
Länge: %2 Abtastwerte</translation>
    </message>
    <message>
        <source>EMU annotation</source>
        <translation>EMU-Annotation</translation>
    </message>
    <message>
        <source>ESPS/xwaves labels, points</source>
        <translation>ESPS/xwaves-Etiketten, Punkte</translation>
    </message>
    <message>
        <source>ESPS/xwaves labels, segments</source>
        <translation>ESPS/xwaves-Etiketten, Segmente</translation>
    </message>
    <message>
        <source>Each tier of the file goes to the tier of its name, or to one that is free.
An interval becomes a label at its start.</source>
        <translation>Jede Ebene der Datei kommt in die Ebene ihres Namens oder in eine freie.
Ein Intervall wird ein Etikett an seinem Anfang.</translation>
    </message>
    <message>
        <source>Edit Label</source>
        <translation>Etikett ändern</translation>
    </message>
    <message>
        <source>Edit Label...</source>
        <translation>Etikett ändern...</translation>
    </message>
    <message>
        <source>Ember</source>
        <translation>Glut</translation>
    </message>
    <message>
        <source>Empty intervals become labels without text</source>
        <translation>Leere Intervalle werden Etiketten ohne Text</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>English</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>Enter &amp;Entire Frame</source>
        <translation>&amp;Ganzes Spektrum eintragen</translation>
    </message>
    <message>
        <source>Enter &amp;Formants</source>
        <translation>&amp;Formanten eintragen</translation>
    </message>
    <message>
        <source>Enter &amp;Marker</source>
        <translation>&amp;Marke eintragen</translation>
    </message>
    <message>
        <source>Enter Formants &amp;All</source>
        <translation>&amp;Alle Formanten eintragen</translation>
    </message>
    <message>
        <source>Enter a number between %1 and %2.</source>
        <translation>Eine Zahl zwischen %1 und %2 eingeben.</translation>
    </message>
    <message>
        <source>Enter a number.</source>
        <translation>Eine Zahl eingeben.</translation>
    </message>
    <message>
        <source>Enter all labels into the log</source>
        <translation>Alle Etiketten ins Protokoll eintragen</translation>
    </message>
    <message>
        <source>Enter an integer between %1 and %2.</source>
        <translation>Eine ganze Zahl zwischen %1 und %2 eingeben.</translation>
    </message>
    <message>
        <source>Enter an integer.</source>
        <translation>Eine ganze Zahl eingeben.</translation>
    </message>
    <message>
        <source>Enter both levels over all frequencies into the log</source>
        <translation>Beide Pegel über alle Frequenzen ins Protokoll eintragen</translation>
    </message>
    <message>
        <source>Enter one time, for example %1 or %2.</source>
        <translation>Eine Zeit eingeben, zum Beispiel %1 oder %2.</translation>
    </message>
    <message>
        <source>Enter pitch and intensity at the marker into the log</source>
        <translation>Tonhöhe und Intensität an der Marke ins Protokoll eintragen</translation>
    </message>
    <message>
        <source>Enter the duration of the selection into the log</source>
        <translation>Die Dauer der Auswahl ins Protokoll eintragen</translation>
    </message>
    <message>
        <source>Enter the formants and their bandwidths into the log</source>
        <translation>Die Formanten und ihre Bandbreiten ins Protokoll eintragen</translation>
    </message>
    <message>
        <source>Enter the formants at the marker into the log</source>
        <translation>Die Formanten an der Marke ins Protokoll eintragen</translation>
    </message>
    <message>
        <source>Enter the formants of every column into the log</source>
        <translation>Die Formanten jeder Spalte ins Protokoll eintragen</translation>
    </message>
    <message>
        <source>Enter the labels of the selection into the log</source>
        <translation>Die Etiketten der Auswahl ins Protokoll eintragen</translation>
    </message>
    <message>
        <source>Enter the levels of the column at the marker into the log</source>
        <translation>Die Pegel der Spalte an der Marke ins Protokoll eintragen</translation>
    </message>
    <message>
        <source>Enter the pitch track of the selection into the log</source>
        <translation>Den Tonhöhenverlauf der Auswahl ins Protokoll eintragen</translation>
    </message>
    <message>
        <source>Enter the values at the marker into the log</source>
        <translation>Die Werte an der Marke ins Protokoll eintragen</translation>
    </message>
    <message>
        <source>Enter the whole pitch track into the log</source>
        <translation>Den ganzen Tonhöhenverlauf ins Protokoll eintragen</translation>
    </message>
    <message>
        <source>Enter two times, or a time and a length, for example %1 %2 or %3 + %4.</source>
        <translation>Zwei Zeiten oder eine Zeit und eine Länge eingeben, zum Beispiel %1 %2 oder %3 + %4.</translation>
    </message>
    <message>
        <source>Export Labels</source>
        <translation>Etiketten ausgeben</translation>
    </message>
    <message>
        <source>Export Labels As</source>
        <translation>Etiketten ausgeben als</translation>
    </message>
    <message>
        <source>Export Labels As...</source>
        <translation>Etiketten ausgeben als...</translation>
    </message>
    <message>
        <source>Export Log as CSV</source>
        <translation>Protokoll als CSV ausgeben</translation>
    </message>
    <message>
        <source>Export as CS&amp;V...</source>
        <translation>Als CS&amp;V ausgeben...</translation>
    </message>
    <message>
        <source>Export the labels so ?</source>
        <translation>Die Etiketten so ausgeben ?</translation>
    </message>
    <message>
        <source>FFT %1 points    Window %2 ms    Step %3 ms    LPC %4    Rate %5 Hz</source>
        <translation>FFT %1 Punkte    Fenster %2 ms    Schritt %3 ms    LPC %4    Rate %5 Hz</translation>
    </message>
    <message>
        <source>FLAC files (*.flac)</source>
        <translation>FLAC-Dateien (*.flac)</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Fo&amp;rmants</source>
        <translation>Fo&amp;rmanten</translation>
    </message>
    <message>
        <source>Follow &amp;View</source>
        <translation>&amp;Ansicht folgen</translation>
    </message>
    <message>
        <source>Follow Mar&amp;ker</source>
        <translation>&amp;Marke folgen</translation>
    </message>
    <message>
        <source>Formants: mean over %1 columns of the spectrogram, order %2, %3 points.</source>
        <translation>Formanten: Mittel über %1 Spalten des Spektrogramms, Ordnung %2, %3 Punkte.</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Gain (%) = </source>
        <translation>Verstärkung (%) = </translation>
    </message>
    <message>
        <source>Go back to the settings of a first run</source>
        <translation>Zu den Einstellungen des ersten Starts zurückkehren</translation>
    </message>
    <message>
        <source>Go to</source>
        <translation>Gehe zu</translation>
    </message>
    <message>
        <source>Go to the next label of the current tier</source>
        <translation>Zum nächsten Etikett der aktuellen Ebene gehen</translation>
    </message>
    <message>
        <source>Go to the next window of the recording</source>
        <translation>Zum nächsten Fenster der Aufnahme gehen</translation>
    </message>
    <message>
        <source>Go to the previous label of the current tier</source>
        <translation>Zum vorigen Etikett der aktuellen Ebene gehen</translation>
    </message>
    <message>
        <source>Go to the previous window of the recording</source>
        <translation>Zum vorigen Fenster der Aufnahme gehen</translation>
    </message>
    <message>
        <source>Go to the window used last of the next recording</source>
        <translation>Zum zuletzt benutzten Fenster der nächsten Aufnahme gehen</translation>
    </message>
    <message>
        <source>Go to...</source>
        <translation>Gehe zu...</translation>
    </message>
    <message>
        <source>Grey</source>
        <translation>Grau</translation>
    </message>
    <message>
        <source>Grids</source>
        <translation>Gitter</translation>
    </message>
    <message>
        <source>HTK labels</source>
        <translation>HTK-Etiketten</translation>
    </message>
    <message>
        <source>Height (pixels)</source>
        <translation>Höhe (Pixel)</translation>
    </message>
    <message>
        <source>Height of tier %1 in pixels</source>
        <translation>Höhe der Ebene %1 in Pixeln</translation>
    </message>
    <message>
        <source>Help on This Window</source>
        <translation>Hilfe zu diesem Fenster</translation>
    </message>
    <message>
        <source>Import Label File</source>
        <translation>Etikettendatei einlesen</translation>
    </message>
    <message>
        <source>Import Label File...</source>
        <translation>Etikettendatei einlesen...</translation>
    </message>
    <message>
        <source>Import the other labels ?</source>
        <translation>Die übrigen Etiketten einlesen ?</translation>
    </message>
    <message>
        <source>In %1 label</source>
        <translation>In %1 Etikett</translation>
    </message>
    <message>
        <source>In %1 labels</source>
        <translation>In %1 Etiketten</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>Benutzt</translation>
    </message>
    <message>
        <source>Input level</source>
        <translation>Eingangspegel</translation>
    </message>
    <message>
        <source>Insert the clipboard at the cursor or in place of the selection</source>
        <translation>Die Zwischenablage am Cursor oder anstelle der Auswahl einfügen</translation>
    </message>
    <message>
        <source>Intensity (dB)</source>
        <translation>Intensität (dB)</translation>
    </message>
    <message>
        <source>Intensity in its &amp;own pane</source>
        <translation>Intensität in eigenem &amp;Feld</translation>
    </message>
    <message>
        <source>Intensity max</source>
        <translation>Intensität max.</translation>
    </message>
    <message>
        <source>Intensity mean</source>
        <translation>Intensität Mittel</translation>
    </message>
    <message>
        <source>Inverse grey</source>
        <translation>Grau, umgekehrt</translation>
    </message>
    <message>
        <source>It holds no labels.</source>
        <translation>Sie enthält keine Etiketten.</translation>
    </message>
    <message>
        <source>It holds no samples.</source>
        <translation>Sie enthält keine Abtastwerte.</translation>
    </message>
    <message>
        <source>It is not a regular file.</source>
        <translation>Es ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>Its sample rate is not possible.</source>
        <translation>Ihre Abtastrate ist nicht möglich.</translation>
    </message>
    <message>
        <source>Its samples could not be followed.</source>
        <translation>Ihre Abtastwerte lassen sich nicht wiederherstellen.</translation>
    </message>
    <message>
        <source>Keep all settings in a configuration file of a name of yours</source>
        <translation>Alle Einstellungen in einer Konfigurationsdatei eigenen Namens behalten</translation>
    </message>
    <message>
        <source>L&amp;PC order</source>
        <translation>L&amp;PC-Ordnung</translation>
    </message>
    <message>
        <source>LPC order %1 is low for %2 Hz (usual: %3).</source>
        <translation>LPC-Ordnung %1 ist niedrig für %2 Hz (üblich: %3).</translation>
    </message>
    <message>
        <source>La&amp;bels</source>
        <translation>Eti&amp;ketten</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>Etikett</translation>
    </message>
    <message>
        <source>Label Entry Mode</source>
        <translation>Etiketteneingabe</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Etiketten</translation>
    </message>
    <message>
        <source>Labels - </source>
        <translation>Etiketten - </translation>
    </message>
    <message>
        <source>Lay the windows side by side</source>
        <translation>Die Fenster nebeneinander legen</translation>
    </message>
    <message>
        <source>Let the level axis end at the highest level, or at the level of the options</source>
        <translation>Die Pegelachse am höchsten Pegel enden lassen oder an dem der Optionen</translation>
    </message>
    <message>
        <source>Let the windows overlap in steps</source>
        <translation>Die Fenster gestaffelt übereinander legen</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Pegel</translation>
    </message>
    <message>
        <source>Levels this far below the highest one are shown</source>
        <translation>So weit unter dem höchsten werden Pegel gezeigt</translation>
    </message>
    <message>
        <source>Lin&amp;k</source>
        <translation>&amp;Verbinden</translation>
    </message>
    <message>
        <source>Listening at %1; nothing is recorded.</source>
        <translation>Es wird mit %1 mitgehört, nichts aufgenommen.</translation>
    </message>
    <message>
        <source>Look for sound devices anew</source>
        <translation>Noch einmal nach Tongeräten suchen</translation>
    </message>
    <message>
        <source>Make the next tier the current one</source>
        <translation>Die nächste Ebene zur aktuellen machen</translation>
    </message>
    <message>
        <source>Make the previous tier the current one</source>
        <translation>Die vorige Ebene zur aktuellen machen</translation>
    </message>
    <message>
        <source>Mean of the voiced entries.</source>
        <translation>Mittel der stimmhaften Werte.</translation>
    </message>
    <message>
        <source>Measurement log</source>
        <translation>Messprotokoll</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>Methode</translation>
    </message>
    <message>
        <source>Milliseconds, or seconds with the unit s: %1 or %2</source>
        <translation>Millisekunden, oder Sekunden mit der Einheit s: %1 oder %2</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>Move the cursor, or both edges of the selection, to the nearest zero crossing</source>
        <translation>Den Cursor oder beide Ränder der Auswahl zum nächsten Nulldurchgang setzen</translation>
    </message>
    <message>
        <source>Move the reference level of the samples and amplify them</source>
        <translation>Den Bezugspegel der Abtastwerte verschieben und sie verstärken</translation>
    </message>
    <message>
        <source>Move the selection to the clipboard</source>
        <translation>Die Auswahl in die Zwischenablage verschieben</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Name of tier %1</source>
        <translation>Name der Ebene %1</translation>
    </message>
    <message>
        <source>Name the tiers, set their heights and which of them are shown</source>
        <translation>Die Ebenen benennen, ihre Höhen setzen und welche von ihnen zu sehen sind</translation>
    </message>
    <message>
        <source>Nearest Zero Crossing</source>
        <translation>Nächster Nulldurchgang</translation>
    </message>
    <message>
        <source>New Label</source>
        <translation>Neues Etikett</translation>
    </message>
    <message>
        <source>New Log</source>
        <translation>Neues Protokoll</translation>
    </message>
    <message>
        <source>Next Label</source>
        <translation>Nächstes Etikett</translation>
    </message>
    <message>
        <source>Next Recording</source>
        <translation>Nächste Aufnahme</translation>
    </message>
    <message>
        <source>Next Tier</source>
        <translation>Nächste Ebene</translation>
    </message>
    <message>
        <source>Next Window</source>
        <translation>Nächstes Fenster</translation>
    </message>
    <message>
        <source>No formants</source>
        <translation>Keine Formanten</translation>
    </message>
    <message>
        <source>No gaps</source>
        <translation>Keine Lücken</translation>
    </message>
    <message>
        <source>No label matches '%1' (%2 hidden).</source>
        <translation>Kein Etikett passt zu '%1' (%2 verborgen).</translation>
    </message>
    <message>
        <source>No label of '%1' follows.</source>
        <translation>Kein Etikett von '%1' folgt.</translation>
    </message>
    <message>
        <source>No label of '%1' stands before.</source>
        <translation>Kein Etikett von '%1' steht davor.</translation>
    </message>
    <message>
        <source>No label stands at the cursor. A letter begins one.</source>
        <translation>Kein Etikett steht am Cursor. Ein Buchstabe beginnt eines.</translation>
    </message>
    <message>
        <source>No labels. Turn on label entry, click and type.</source>
        <translation>Keine Etiketten. Etiketteneingabe einschalten, klicken und tippen.</translation>
    </message>
    <message>
        <source>No more hints beside this recording</source>
        <translation>Keine Hinweise mehr bei dieser Aufnahme</translation>
    </message>
    <message>
        <source>No pitch yet.</source>
        <translation>Noch keine Tonhöhe.</translation>
    </message>
    <message>
        <source>No pitch yet. Pitch All (Ctrl+L) computes it.</source>
        <translation>Noch keine Tonhöhe. Pitch All (Ctrl+L) berechnet sie.</translation>
    </message>
    <message>
        <source>No tier in use. Type to use '%1', or set tiers...</source>
        <translation>Keine Ebene in Gebrauch. Lostippen nimmt '%1', oder Ebenen einrichten...</translation>
    </message>
    <message>
        <source>No tier in use. Type to use 'words', or set tiers…</source>
        <translation>Keine Ebene in Gebrauch. Lostippen nimmt 'words', oder Ebenen einrichten…</translation>
    </message>
    <message>
        <source>No tier is in use.</source>
        <translation>Keine Ebene ist in Gebrauch.</translation>
    </message>
    <message>
        <source>No voiced stretch between %1 and %2 Hz found. Options…</source>
        <translation>Kein stimmhafter Abschnitt zwischen %1 und %2 Hz gefunden. Optionen…</translation>
    </message>
    <message>
        <source>Not clipped</source>
        <translation>Nicht übersteuert</translation>
    </message>
    <message>
        <source>Nothing computed. Update (F5).</source>
        <translation>Nichts berechnet. Aktualisieren (F5).</translation>
    </message>
    <message>
        <source>Nothing could be restored.</source>
        <translation>Nichts war wiederherzustellen.</translation>
    </message>
    <message>
        <source>Nothing has come from the sound input for two seconds.</source>
        <translation>Seit zwei Sekunden kommt nichts vom Toneingang.</translation>
    </message>
    <message>
        <source>Nothing is heard.</source>
        <translation>Nichts ist zu hören.</translation>
    </message>
    <message>
        <source>Nothing measured. Ctrl+D enters the selection's duration, Ctrl+I its statistics.</source>
        <translation>Nichts gemessen. Ctrl+D trägt die Dauer der Auswahl ein, Ctrl+I ihre Statistik.</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Ziffernblocktaste</translation>
    </message>
    <message>
        <source>One row (Ctrl+I)</source>
        <translation>Eine Zeile (Ctrl+I)</translation>
    </message>
    <message>
        <source>Open Log</source>
        <translation>Protokoll öffnen</translation>
    </message>
    <message>
        <source>Open S&amp;cope Window</source>
        <translation>Os&amp;zilloskop öffnen</translation>
    </message>
    <message>
        <source>Open a log first</source>
        <translation>Zuerst ein Protokoll öffnen</translation>
    </message>
    <message>
        <source>Open a recording</source>
        <translation>Eine Aufnahme öffnen</translation>
    </message>
    <message>
        <source>Open a recording (Ctrl+O), drop one here, or record (Ctrl+R).</source>
        <translation>Eine Aufnahme öffnen (Ctrl+O), hier ablegen oder aufnehmen (Ctrl+R).</translation>
    </message>
    <message>
        <source>Open an empty document</source>
        <translation>Ein leeres Dokument öffnen</translation>
    </message>
    <message>
        <source>Open an empty log</source>
        <translation>Ein leeres Protokoll öffnen</translation>
    </message>
    <message>
        <source>Open another window of the document</source>
        <translation>Ein weiteres Fenster des Dokuments öffnen</translation>
    </message>
    <message>
        <source>Open the manual</source>
        <translation>Das Handbuch öffnen</translation>
    </message>
    <message>
        <source>Open the manual at the page of the window in front</source>
        <translation>Das Handbuch auf der Seite des vorderen Fensters öffnen</translation>
    </message>
    <message>
        <source>Open this recording again</source>
        <translation>Diese Aufnahme wieder öffnen</translation>
    </message>
    <message>
        <source>PDF documents (*.pdf)</source>
        <translation>PDF-Dokumente (*.pdf)</translation>
    </message>
    <message>
        <source>PDF files (*.pdf)</source>
        <translation>PDF-Dateien (*.pdf)</translation>
    </message>
    <message>
        <source>PNG files (*.png)</source>
        <translation>PNG-Dateien (*.png)</translation>
    </message>
    <message>
        <source>PNG pictures (*.png)</source>
        <translation>PNG-Bilder (*.png)</translation>
    </message>
    <message>
        <source>Peak %1 dB</source>
        <translation>Spitze %1 dB</translation>
    </message>
    <message>
        <source>Perform FFT &amp; LPC analysis averaged over the selection</source>
        <translation>FFT- und LPC-Analyse, gemittelt über die Auswahl</translation>
    </message>
    <message>
        <source>Perform pitch and intensity of the selection</source>
        <translation>Tonhöhe und Intensität der Auswahl berechnen</translation>
    </message>
    <message>
        <source>Perform pitch and intensity of the whole file</source>
        <translation>Tonhöhe und Intensität der ganzen Datei berechnen</translation>
    </message>
    <message>
        <source>Perform pitch and intensity of the window</source>
        <translation>Tonhöhe und Intensität des Fensters berechnen</translation>
    </message>
    <message>
        <source>Perform spectrogram on the selection</source>
        <translation>Spektrogramm der Auswahl berechnen</translation>
    </message>
    <message>
        <source>Perform spectrogram on the whole file</source>
        <translation>Spektrogramm der ganzen Datei berechnen</translation>
    </message>
    <message>
        <source>Phonetic Chart</source>
        <translation>Lautschrifttafel</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Pitch</source>
        <translation>Tonhöhe</translation>
    </message>
    <message>
        <source>Pitch (Hz)</source>
        <translation>Tonhöhe (Hz)</translation>
    </message>
    <message>
        <source>Pitch Option</source>
        <translation>Tonhöhenoptionen</translation>
    </message>
    <message>
        <source>Pitch SD</source>
        <translation>Tonhöhe SD</translation>
    </message>
    <message>
        <source>Pitch max</source>
        <translation>Tonhöhe max.</translation>
    </message>
    <message>
        <source>Pitch mean</source>
        <translation>Tonhöhe Mittel</translation>
    </message>
    <message>
        <source>Pitch median</source>
        <translation>Tonhöhe Median</translation>
    </message>
    <message>
        <source>Pitch min</source>
        <translation>Tonhöhe min.</translation>
    </message>
    <message>
        <source>Pitch pan&amp;e (%)</source>
        <translation>To&amp;nhöhenfeld (%)</translation>
    </message>
    <message>
        <source>Pitch: AutoCorrolation, %1 voiced of %2 entries, one each %3.</source>
        <translation>Tonhöhe: AutoCorrolation, %1 stimmhaft von %2 Werten, je einer in %3.</translation>
    </message>
    <message>
        <source>Pitch: Cepstral, %1 voiced of %2 entries, one each %3.</source>
        <translation>Tonhöhe: Cepstral, %1 stimmhaft von %2 Werten, je einer in %3.</translation>
    </message>
    <message>
        <source>Place of the spectrum</source>
        <translation>Ort des Spektrums</translation>
    </message>
    <message>
        <source>Plain text, milliseconds</source>
        <translation>Reiner Text, Millisekunden</translation>
    </message>
    <message>
        <source>Plain text, seconds</source>
        <translation>Reiner Text, Sekunden</translation>
    </message>
    <message>
        <source>Play Label</source>
        <translation>Etikett abspielen</translation>
    </message>
    <message>
        <source>Play from the selected label to the next one of its tier</source>
        <translation>Vom gewählten Etikett bis zum nächsten seiner Ebene abspielen</translation>
    </message>
    <message>
        <source>Play the section of the file displayed in this window</source>
        <translation>Den in diesem Fenster gezeigten Teil der Datei abspielen</translation>
    </message>
    <message>
        <source>Play the selected section of the file</source>
        <translation>Den ausgewählten Teil der Datei abspielen</translation>
    </message>
    <message>
        <source>Play the whole file</source>
        <translation>Die ganze Datei abspielen</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Playing in another window</source>
        <translation>Wiedergabe in einem anderen Fenster</translation>
    </message>
    <message>
        <source>Praat TextGrid</source>
        <translation>Praat TextGrid</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Previous Label</source>
        <translation>Voriges Etikett</translation>
    </message>
    <message>
        <source>Previous Tier</source>
        <translation>Vorige Ebene</translation>
    </message>
    <message>
        <source>Previous Window</source>
        <translation>Voriges Fenster</translation>
    </message>
    <message>
        <source>Print the picture</source>
        <translation>Das Bild drucken</translation>
    </message>
    <message>
        <source>Print the recording</source>
        <translation>Die Aufnahme drucken</translation>
    </message>
    <message>
        <source>Print the window as it is on the screen</source>
        <translation>Das Fenster drucken, wie es am Bildschirm steht</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Put the cursor at a typed time</source>
        <translation>Den Cursor an eine eingetippte Zeit setzen</translation>
    </message>
    <message>
        <source>Put the minimised windows in a row</source>
        <translation>Die verkleinerten Fenster in eine Reihe legen</translation>
    </message>
    <message>
        <source>Put the windows of the recording beside each other</source>
        <translation>Die Fenster der Aufnahme zueinander ordnen</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>RMS %1 dB</source>
        <translation>RMS %1 dB</translation>
    </message>
    <message>
        <source>Ra&amp;nge</source>
        <translation>&amp;Bereich</translation>
    </message>
    <message>
        <source>Ranges</source>
        <translation>Bereiche</translation>
    </message>
    <message>
        <source>Re&amp;scan</source>
        <translation>&amp;Neu suchen</translation>
    </message>
    <message>
        <source>Record/Play Options</source>
        <translation>Optionen für Aufnahme und Wiedergabe</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Recording at %1</source>
        <translation>Aufnahme mit %1</translation>
    </message>
    <message>
        <source>Recording in front</source>
        <translation>Vordere Aufnahme</translation>
    </message>
    <message>
        <source>Recording needs a rate between %1 and %2 Hz.</source>
        <translation>Eine Aufnahme braucht eine Rate zwischen %1 und %2 Hz.</translation>
    </message>
    <message>
        <source>Reference = </source>
        <translation>Bezugspegel = </translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Replace (nothing: the whole text):</source>
        <translation>Ersetzen (nichts: den ganzen Text):</translation>
    </message>
    <message>
        <source>SPHERE corpus labels</source>
        <translation>Etiketten von SPHERE-Korpora</translation>
    </message>
    <message>
        <source>SVG drawings (*.svg)</source>
        <translation>SVG-Zeichnungen (*.svg)</translation>
    </message>
    <message>
        <source>SVG files (*.svg)</source>
        <translation>SVG-Dateien (*.svg)</translation>
    </message>
    <message>
        <source>Sample recording</source>
        <translation>Beispielaufnahme</translation>
    </message>
    <message>
        <source>Samples</source>
        <translation>Abtastwerte</translation>
    </message>
    <message>
        <source>Save Group Picture</source>
        <translation>Gruppenbild speichern</translation>
    </message>
    <message>
        <source>Save Group Picture...</source>
        <translation>Gruppenbild speichern...</translation>
    </message>
    <message>
        <source>Save Log</source>
        <translation>Protokoll speichern</translation>
    </message>
    <message>
        <source>Save Log As</source>
        <translation>Protokoll speichern unter</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Save a copy of the document and stay with the original</source>
        <translation>Eine Kopie des Dokuments speichern und beim Original bleiben</translation>
    </message>
    <message>
        <source>Save the document</source>
        <translation>Das Dokument speichern</translation>
    </message>
    <message>
        <source>Save the document under a new name</source>
        <translation>Das Dokument unter neuem Namen speichern</translation>
    </message>
    <message>
        <source>Save the log</source>
        <translation>Das Protokoll speichern</translation>
    </message>
    <message>
        <source>Save the log under another name</source>
        <translation>Das Protokoll unter anderem Namen speichern</translation>
    </message>
    <message>
        <source>Save the picture as PNG, BMP, SVG or PDF</source>
        <translation>Das Bild als PNG, BMP, SVG oder PDF speichern</translation>
    </message>
    <message>
        <source>Save the picture of the recording as a bitmap file</source>
        <translation>Das Bild der Aufnahme als Bitmapdatei speichern</translation>
    </message>
    <message>
        <source>Save the selection as a recording of its own</source>
        <translation>Die Auswahl als eigene Aufnahme speichern</translation>
    </message>
    <message>
        <source>Save the window as it is on the screen as a bitmap file</source>
        <translation>Das Fenster, wie es am Bildschirm steht, als Bitmapdatei speichern</translation>
    </message>
    <message>
        <source>Save waveform, spectrogram and pitch under each other as one picture</source>
        <translation>Wellenform, Spektrogramm und Tonhöhe untereinander als ein Bild speichern</translation>
    </message>
    <message>
        <source>Save, copy or print the picture</source>
        <translation>Das Bild speichern, kopieren oder drucken</translation>
    </message>
    <message>
        <source>Scroll Lock</source>
        <translation>Rollentaste</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Searching a zero crossing...</source>
        <translation>Ein Nulldurchgang wird gesucht...</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Select a folder</source>
        <translation>Einen Ordner wählen</translation>
    </message>
    <message>
        <source>Select a stretch: drag over the recording.</source>
        <translation>Einen Abschnitt auswählen: über die Aufnahme ziehen.</translation>
    </message>
    <message>
        <source>Select between typed times</source>
        <translation>Zwischen eingetippten Zeiten auswählen</translation>
    </message>
    <message>
        <source>Select the stretch displayed in the window</source>
        <translation>Den im Fenster gezeigten Abschnitt auswählen</translation>
    </message>
    <message>
        <source>Select the whole recording</source>
        <translation>Die ganze Aufnahme auswählen</translation>
    </message>
    <message>
        <source>Select...</source>
        <translation>Auswählen...</translation>
    </message>
    <message>
        <source>Selection %1 to %2    Average pitch %3 Hz</source>
        <translation>Auswahl %1 bis %2    mittlere Tonhöhe %3 Hz</translation>
    </message>
    <message>
        <source>Selection %1 to %2    Duration %3</source>
        <translation>Auswahl %1 bis %2    Dauer %3</translation>
    </message>
    <message>
        <source>Set input, rate and levels of recording and playback</source>
        <translation>Eingang, Rate und Pegel von Aufnahme und Wiedergabe einstellen</translation>
    </message>
    <message>
        <source>Set the duration to zoom from the cursor</source>
        <translation>Die Dauer einstellen, die vom Cursor an gezeigt wird</translation>
    </message>
    <message>
        <source>Set the parameters of FFT and LPC</source>
        <translation>Die Parameter von FFT und LPC einstellen</translation>
    </message>
    <message>
        <source>Set the parameters of pitch tracking</source>
        <translation>Die Parameter der Tonhöhenverfolgung einstellen</translation>
    </message>
    <message>
        <source>Set the parameters of the intensity</source>
        <translation>Die Parameter der Intensität einstellen</translation>
    </message>
    <message>
        <source>Set the parameters of the spectrogram</source>
        <translation>Die Parameter des Spektrogramms einstellen</translation>
    </message>
    <message>
        <source>Set the samples of the selection to the reference level</source>
        <translation>Die Abtastwerte der Auswahl auf den Bezugspegel setzen</translation>
    </message>
    <message>
        <source>Set the step of whole spectra in the log</source>
        <translation>Die Schrittweite ganzer Spektren im Protokoll einstellen</translation>
    </message>
    <message>
        <source>Set, edit and move labels with the mouse, or stop doing so</source>
        <translation>Etiketten mit der Maus setzen, ändern und verschieben, oder damit aufhören</translation>
    </message>
    <message>
        <source>Set/Modify Tiers</source>
        <translation>Ebenen einrichten</translation>
    </message>
    <message>
        <source>Show less and larger</source>
        <translation>Weniger und größer zeigen</translation>
    </message>
    <message>
        <source>Show more and smaller</source>
        <translation>Mehr und kleiner zeigen</translation>
    </message>
    <message>
        <source>Show or hide the phonetic signs that a click puts into a label</source>
        <translation>Die Lautzeichen zeigen oder verbergen, die ein Klick in ein Etikett setzt</translation>
    </message>
    <message>
        <source>Show or hide the status bar</source>
        <translation>Die Statuszeile zeigen oder verbergen</translation>
    </message>
    <message>
        <source>Show or hide the tool bar</source>
        <translation>Die Werkzeugleiste zeigen oder verbergen</translation>
    </message>
    <message>
        <source>Show the duration of the zoom option from the cursor on</source>
        <translation>Vom Cursor an die Dauer der Zoom-Option zeigen</translation>
    </message>
    <message>
        <source>Show the selection alone</source>
        <translation>Nur die Auswahl zeigen</translation>
    </message>
    <message>
        <source>Show the stretch before the last zoom</source>
        <translation>Den Abschnitt vor dem letzten Zoom zeigen</translation>
    </message>
    <message>
        <source>Show the whole recording</source>
        <translation>Die ganze Aufnahme zeigen</translation>
    </message>
    <message>
        <source>Show what the main view shows</source>
        <translation>Zeigen, was die Hauptansicht zeigt</translation>
    </message>
    <message>
        <source>Show what the selection measures in all; once more: enter it into the log</source>
        <translation>Zeigen, was die Auswahl im Ganzen misst; noch einmal: ins Protokoll eintragen</translation>
    </message>
    <message>
        <source>Show what this program is and its version</source>
        <translation>Zeigen, was dieses Programm ist, und seine Version</translation>
    </message>
    <message>
        <source>Show what would be printed</source>
        <translation>Zeigen, was gedruckt würde</translation>
    </message>
    <message>
        <source>Size of prints</source>
        <translation>Größe der Ausdrucke</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Ton</translation>
    </message>
    <message>
        <source>Sound devices cannot be looked for now.</source>
        <translation>Tongeräte können jetzt nicht gesucht werden.</translation>
    </message>
    <message>
        <source>Spectrogram</source>
        <translation>Spektrogramm</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>Statistics of Selection</source>
        <translation>Statistik der Auswahl</translation>
    </message>
    <message>
        <source>Statistics of the selection</source>
        <translation>Statistik der Auswahl</translation>
    </message>
    <message>
        <source>Step is %1 samples = %2 with AutoCorrolation</source>
        <translation>Schritt ist %1 Abtastwerte = %2 bei AutoCorrolation</translation>
    </message>
    <message>
        <source>Suggested</source>
        <translation>Vorschlag</translation>
    </message>
    <message>
        <source>Suggested: for speech of this recording's rate.</source>
        <translation>Vorschlag: für Sprache bei der Abtastrate dieser Aufnahme.</translation>
    </message>
    <message>
        <source>System default</source>
        <translation>Vorgabe des Systems</translation>
    </message>
    <message>
        <source>Table with commas</source>
        <translation>Tabelle mit Kommas</translation>
    </message>
    <message>
        <source>Table with tabs</source>
        <translation>Tabelle mit Tabulatoren</translation>
    </message>
    <message>
        <source>Take all settings from a configuration file</source>
        <translation>Alle Einstellungen aus einer Konfigurationsdatei nehmen</translation>
    </message>
    <message>
        <source>Take the last edit back</source>
        <translation>Die letzte Änderung zurücknehmen</translation>
    </message>
    <message>
        <source>Take the spectrum where the marker of the main view is</source>
        <translation>Das Spektrum an der Marke der Hauptansicht nehmen</translation>
    </message>
    <message>
        <source>The cursor moved by %1 to the zero crossing at %2.</source>
        <translation>Der Cursor ging um %1 zum Nulldurchgang bei %2.</translation>
    </message>
    <message>
        <source>The cursor stands at a zero crossing already.</source>
        <translation>Der Cursor steht schon an einem Nulldurchgang.</translation>
    </message>
    <message>
        <source>The end moved by %1 to the zero crossing at %2.</source>
        <translation>Das Ende ging um %1 zum Nulldurchgang bei %2.</translation>
    </message>
    <message>
        <source>The end stands at a zero crossing already.</source>
        <translation>Das Ende steht schon an einem Nulldurchgang.</translation>
    </message>
    <message>
        <source>The file ends at byte %1, too early.</source>
        <translation>Die Datei endet bei Byte %1, zu früh.</translation>
    </message>
    <message>
        <source>The file is incomplete: its header promises %1 samples, %2 are there.</source>
        <translation>Die Datei ist unvollständig: ihr Kopf verspricht %1 Abtastwerte, %2 sind da.</translation>
    </message>
    <message>
        <source>The label '%1' would be without text.</source>
        <translation>Das Etikett '%1' wäre ohne Text.</translation>
    </message>
    <message>
        <source>The label '%1' would have more than %2 bytes.</source>
        <translation>Das Etikett '%1' hätte mehr als %2 Bytes.</translation>
    </message>
    <message>
        <source>The labels are restored, on the samples that it has now.</source>
        <translation>Die Etiketten sind wiederhergestellt, auf den jetzigen Abtastwerten.</translation>
    </message>
    <message>
        <source>The labels are restored, over silence.</source>
        <translation>Die Etiketten sind wiederhergestellt, über Stille.</translation>
    </message>
    <message>
        <source>The log '%1' from %2 was not saved: %3 row.</source>
        <translation>Das Protokoll '%1' vom %2 wurde nicht gespeichert: %3 Zeile.</translation>
    </message>
    <message>
        <source>The log '%1' from %2 was not saved: %3 rows.</source>
        <translation>Das Protokoll '%1' vom %2 wurde nicht gespeichert: %3 Zeilen.</translation>
    </message>
    <message>
        <source>The name must end in %1 or %2.</source>
        <translation>Der Name muss auf %1 oder %2 enden.</translation>
    </message>
    <message>
        <source>The picture could not be begun.</source>
        <translation>Das Bild konnte nicht begonnen werden.</translation>
    </message>
    <message>
        <source>The picture could not be encoded.</source>
        <translation>Das Bild konnte nicht verschlüsselt werden.</translation>
    </message>
    <message>
        <source>The picture has no size.</source>
        <translation>Das Bild hat keine Größe.</translation>
    </message>
    <message>
        <source>The picture is too large.</source>
        <translation>Das Bild ist zu groß.</translation>
    </message>
    <message>
        <source>The picture reaches from 0 Hz to here</source>
        <translation>Das Bild reicht von 0 Hz bis hier</translation>
    </message>
    <message>
        <source>The printer reports an error.</source>
        <translation>Der Drucker meldet einen Fehler.</translation>
    </message>
    <message>
        <source>The recording goes from %1 to %2.</source>
        <translation>Die Aufnahme geht von %1 bis %2.</translation>
    </message>
    <message>
        <source>The recording has changed since this was computed. Press Update (F5) to compute again.</source>
        <translation>Die Aufnahme hat sich seit der Berechnung geändert. Aktualisieren (F5) rechnet neu.</translation>
    </message>
    <message>
        <source>The recording is offered at the next start.</source>
        <translation>Die Aufnahme wird beim nächsten Start angeboten.</translation>
    </message>
    <message>
        <source>The recording never crosses zero.</source>
        <translation>Die Aufnahme geht nie durch null.</translation>
    </message>
    <message>
        <source>The size is in inches.</source>
        <translation>Die Größe ist in Zoll.</translation>
    </message>
    <message>
        <source>The sound input "%1" is not there: the system's own is used.</source>
        <translation>Der Toneingang "%1" ist nicht da: der des Systems wird genommen.</translation>
    </message>
    <message>
        <source>The sound input does not answer.</source>
        <translation>Der Toneingang antwortet nicht.</translation>
    </message>
    <message>
        <source>The sound input has gone.</source>
        <translation>Der Toneingang ist fort.</translation>
    </message>
    <message>
        <source>The sound output does not answer.</source>
        <translation>Der Tonausgang antwortet nicht.</translation>
    </message>
    <message>
        <source>The sound output has gone.</source>
        <translation>Der Tonausgang ist fort.</translation>
    </message>
    <message>
        <source>The start moved by %1 to the zero crossing at %2.</source>
        <translation>Der Anfang ging um %1 zum Nulldurchgang bei %2.</translation>
    </message>
    <message>
        <source>The start stands at a zero crossing already.</source>
        <translation>Der Anfang steht schon an einem Nulldurchgang.</translation>
    </message>
    <message>
        <source>The system has no thread for the playback.</source>
        <translation>Das System hat keinen Thread für die Wiedergabe.</translation>
    </message>
    <message>
        <source>The system has no thread for the recording.</source>
        <translation>Das System hat keinen Thread für die Aufnahme.</translation>
    </message>
    <message>
        <source>The work on '%1' from %2 was not saved: %3 change.</source>
        <translation>Die Arbeit an '%1' vom %2 wurde nicht gespeichert: %3 Änderung.</translation>
    </message>
    <message>
        <source>The work on '%1' from %2 was not saved: %3 changes.</source>
        <translation>Die Arbeit an '%1' vom %2 wurde nicht gespeichert: %3 Änderungen.</translation>
    </message>
    <message>
        <source>There is no room to record: the disk of "%1" holds another %2 only.</source>
        <translation>Für eine Aufnahme ist kein Platz: der Datenträger von "%1" fasst nur noch %2.</translation>
    </message>
    <message>
        <source>There is no spectrogram to draw.</source>
        <translation>Es gibt kein Spektrogramm zu zeichnen.</translation>
    </message>
    <message>
        <source>There is no spectrum to draw.</source>
        <translation>Es gibt kein Spektrum zu zeichnen.</translation>
    </message>
    <message>
        <source>There is not enough memory to go on recording.</source>
        <translation>Der Speicher reicht nicht, um weiter aufzunehmen.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>Der Speicher reicht nicht.</translation>
    </message>
    <message>
        <source>Tide</source>
        <translation>Flut</translation>
    </message>
    <message>
        <source>Tier</source>
        <translation>Ebene</translation>
    </message>
    <message>
        <source>Tier "%1": %2 label before %3 or past the end at %4 left out.</source>
        <translation>Ebene "%1": %2 Etikett vor %3 oder hinter dem Ende bei %4 weggelassen.</translation>
    </message>
    <message>
        <source>Tier "%1": %2 label outside the recording left out.</source>
        <translation>Ebene "%1": %2 Etikett außerhalb der Aufnahme weggelassen.</translation>
    </message>
    <message>
        <source>Tier "%1": %2 labels before %3 or past the end at %4 left out.</source>
        <translation>Ebene "%1": %2 Etiketten vor %3 oder hinter dem Ende bei %4 weggelassen.</translation>
    </message>
    <message>
        <source>Tier "%1": %2 labels outside the recording left out.</source>
        <translation>Ebene "%1": %2 Etiketten außerhalb der Aufnahme weggelassen.</translation>
    </message>
    <message>
        <source>Tier "%1": %2 text cut to %3 bytes.</source>
        <translation>Ebene "%1": %2 Text auf %3 Bytes gekürzt.</translation>
    </message>
    <message>
        <source>Tier "%1": %2 texts cut to %3 bytes.</source>
        <translation>Ebene "%1": %2 Texte auf %3 Bytes gekürzt.</translation>
    </message>
    <message>
        <source>Tier "%1": empty intervals stand for %2 label without text.</source>
        <translation>Ebene "%1": leere Intervalle stehen für %2 Etikett ohne Text.</translation>
    </message>
    <message>
        <source>Tier "%1": empty intervals stand for %2 labels without text.</source>
        <translation>Ebene "%1": leere Intervalle stehen für %2 Etiketten ohne Text.</translation>
    </message>
    <message>
        <source>Tier %1 in use</source>
        <translation>Ebene %1 benutzt</translation>
    </message>
    <message>
        <source>Tiers</source>
        <translation>Ebenen</translation>
    </message>
    <message>
        <source>Tiers and panes</source>
        <translation>Ebenen und Felder</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Time (ms)</source>
        <translation>Zeit (ms)</translation>
    </message>
    <message>
        <source>Time (sec)</source>
        <translation>Zeit (s)</translation>
    </message>
    <message>
        <source>Time:</source>
        <translation>Zeit:</translation>
    </message>
    <message>
        <source>Trace of the sound input</source>
        <translation>Verlauf des Toneingangs</translation>
    </message>
    <message>
        <source>Track mouse for all windows: a press or drag here sets cursor and selection everywhere</source>
        <translation>Maus für alle Fenster verfolgen: Drücken oder Ziehen hier setzt Cursor und Auswahl überall</translation>
    </message>
    <message>
        <source>Two times, or time + length:</source>
        <translation>Zwei Zeiten, oder Zeit + Länge:</translation>
    </message>
    <message>
        <source>Type Label</source>
        <translation>Etikett tippen</translation>
    </message>
    <message>
        <source>Type a label at the cursor or over the selection</source>
        <translation>Ein Etikett am Cursor oder über die Auswahl tippen</translation>
    </message>
    <message>
        <source>Type a label for '%1' at %2</source>
        <translation>Ein Etikett für '%1' bei %2 tippen</translation>
    </message>
    <message>
        <source>Type over the selected label, or the one at the cursor</source>
        <translation>Das gewählte Etikett, oder das am Cursor, überschreiben</translation>
    </message>
    <message>
        <source>Under the pointer</source>
        <translation>Unter dem Zeiger</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Use %1</source>
        <translation>%1 nehmen</translation>
    </message>
    <message>
        <source>Use both</source>
        <translation>Beide nehmen</translation>
    </message>
    <message>
        <source>Use the usual value in this document</source>
        <translation>Den üblichen Wert in diesem Dokument nehmen</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Visible stretch</source>
        <translation>Sichtbarer Abschnitt</translation>
    </message>
    <message>
        <source>Voiced</source>
        <translation>Stimmhaft</translation>
    </message>
    <message>
        <source>Voicing level = </source>
        <translation>Stimmhaftigkeitspegel = </translation>
    </message>
    <message>
        <source>Waveform</source>
        <translation>Wellenform</translation>
    </message>
    <message>
        <source>What is done to '%1' from here on would be lost in a crash.</source>
        <translation>Was von hier an mit '%1' geschieht, ginge bei einem Absturz verloren.</translation>
    </message>
    <message>
        <source>What is entered into the log from here on would be lost in a crash.</source>
        <translation>Was von hier an ins Protokoll kommt, ginge bei einem Absturz verloren.</translation>
    </message>
    <message>
        <source>What was recorded is kept.</source>
        <translation>Was aufgenommen wurde, bleibt erhalten.</translation>
    </message>
    <message>
        <source>While this window is open, two keys give a sign: the tip of each sign names them.</source>
        <translation>Solange dieses Fenster offen ist, geben zwei Tasten ein Zeichen: der Hinweis an jedem Zeichen nennt sie.</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Width of a line of the transform, and its length</source>
        <translation>Breite einer Linie der Transformation und ihre Länge</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>With:</source>
        <translation>Durch:</translation>
    </message>
    <message>
        <source>Would you like to restore it ?</source>
        <translation>Soll sie wiederhergestellt werden ?</translation>
    </message>
    <message>
        <source>Write the labels as a file for another program</source>
        <translation>Die Etiketten als Datei für ein anderes Programm schreiben</translation>
    </message>
    <message>
        <source>Write the recording as a WAV file</source>
        <translation>Die Aufnahme als WAV-Datei schreiben</translation>
    </message>
    <message>
        <source>Write the selection as a WAV file</source>
        <translation>Die Auswahl als WAV-Datei schreiben</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Zoom to Selection</source>
        <translation>Auswahl zeigen</translation>
    </message>
    <message>
        <source>a binary TextGrid is not read; save it as a text file</source>
        <translation>ein binäres TextGrid wird nicht gelesen; als Textdatei speichern</translation>
    </message>
    <message>
        <source>a chronological TextGrid is not read; save it as a text file</source>
        <translation>ein chronologisches TextGrid wird nicht gelesen; als Textdatei speichern</translation>
    </message>
    <message>
        <source>a master label file of many recordings is not read</source>
        <translation>eine Sammeldatei vieler Aufnahmen wird nicht gelesen</translation>
    </message>
    <message>
        <source>a point</source>
        <translation>ein Punkt</translation>
    </message>
    <message>
        <source>a recording runs</source>
        <translation>eine Aufnahme läuft</translation>
    </message>
    <message>
        <source>amp %1</source>
        <translation>Amp. %1</translation>
    </message>
    <message>
        <source>an interval up to the next label</source>
        <translation>ein Intervall bis zum nächsten Etikett</translation>
    </message>
    <message>
        <source>at %1</source>
        <translation>bei %1</translation>
    </message>
    <message>
        <source>channel %1 of %2</source>
        <translation>Kanal %1 von %2</translation>
    </message>
    <message>
        <source>click a label first</source>
        <translation>zuerst ein Etikett anklicken</translation>
    </message>
    <message>
        <source>click to set the cursor first</source>
        <translation>zuerst den Cursor durch einen Klick setzen</translation>
    </message>
    <message>
        <source>cursor %1</source>
        <translation>Cursor %1</translation>
    </message>
    <message>
        <source>cut or copy a stretch first</source>
        <translation>zuerst einen Abschnitt ausschneiden oder kopieren</translation>
    </message>
    <message>
        <source>formants</source>
        <translation>Formanten</translation>
    </message>
    <message>
        <source>int %1</source>
        <translation>Int. %1</translation>
    </message>
    <message>
        <source>int %1 dB</source>
        <translation>Int. %1 dB</translation>
    </message>
    <message>
        <source>intensity (dB, right axis)</source>
        <translation>Intensität (dB, rechte Achse)</translation>
    </message>
    <message>
        <source>it is no label file of a known format</source>
        <translation>es ist keine Etikettendatei eines bekannten Formats</translation>
    </message>
    <message>
        <source>mean of %1 – %2</source>
        <translation>Mittel von %1 – %2</translation>
    </message>
    <message>
        <source>nothing has changed</source>
        <translation>nichts hat sich geändert</translation>
    </message>
    <message>
        <source>open a log first</source>
        <translation>zuerst ein Protokoll öffnen</translation>
    </message>
    <message>
        <source>open a recording first</source>
        <translation>zuerst eine Aufnahme öffnen</translation>
    </message>
    <message>
        <source>pitch %1</source>
        <translation>Tonhöhe %1</translation>
    </message>
    <message>
        <source>pitch %1 Hz</source>
        <translation>Tonhöhe %1 Hz</translation>
    </message>
    <message>
        <source>plain text does not say the unit of its times: choose it as the format</source>
        <translation>reiner Text nennt die Einheit seiner Zeiten nicht: als Format wählen</translation>
    </message>
    <message>
        <source>press Update first</source>
        <translation>zuerst aktualisieren</translation>
    </message>
    <message>
        <source>select a stretch first</source>
        <translation>zuerst einen Abschnitt auswählen</translation>
    </message>
    <message>
        <source>selection %1 – %2</source>
        <translation>Auswahl %1 – %2</translation>
    </message>
    <message>
        <source>shown %1 – %2</source>
        <translation>gezeigt %1 – %2</translation>
    </message>
    <message>
        <source>tables with commas (*.csv)</source>
        <translation>Tabellen mit Kommas (*.csv)</translation>
    </message>
    <message>
        <source>the file holds no levels</source>
        <translation>die Datei enthält keine Ebenen</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>die Datei ist leer</translation>
    </message>
    <message>
        <source>the heading names no column of times (start, time) and texts (text, label)</source>
        <translation>die Überschrift nennt keine Spalte von Zeiten (start, time) und Texten (text, label)</translation>
    </message>
    <message>
        <source>the recording has changed: press Update first</source>
        <translation>die Aufnahme hat sich geändert: zuerst aktualisieren</translation>
    </message>
    <message>
        <source>the whole recording is in sight</source>
        <translation>die ganze Aufnahme ist zu sehen</translation>
    </message>
    <message>
        <source>there is no edit to take back</source>
        <translation>es gibt keine Änderung zurückzunehmen</translation>
    </message>
    <message>
        <source>there is nothing to compute from</source>
        <translation>es gibt nichts, woraus zu rechnen wäre</translation>
    </message>
    <message>
        <source>turn formant tracking on and press Update first</source>
        <translation>zuerst Formantverfolgung einschalten und aktualisieren</translation>
    </message>
</context>
<context>
    <name>Phonetic signs</name>
    <message>
        <source>Alveolar</source>
        <translation>Alveolar</translation>
    </message>
    <message>
        <source>Approximant</source>
        <translation>Approximant</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Hinten</translation>
    </message>
    <message>
        <source>Bilabial</source>
        <translation>Bilabial</translation>
    </message>
    <message>
        <source>Central</source>
        <translation>Zentral</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Geschl.</translation>
    </message>
    <message>
        <source>Close-mid</source>
        <translation>Halbgeschl.</translation>
    </message>
    <message>
        <source>Consonants (pulmonic)</source>
        <translation>Konsonanten (pulmonal)</translation>
    </message>
    <message>
        <source>Dental</source>
        <translation>Dental</translation>
    </message>
    <message>
        <source>Diacritics</source>
        <translation>Diakritika</translation>
    </message>
    <message>
        <source>Fricative</source>
        <translation>Frikativ</translation>
    </message>
    <message>
        <source>Front</source>
        <translation>Vorn</translation>
    </message>
    <message>
        <source>Glottal</source>
        <translation>Glottal</translation>
    </message>
    <message>
        <source>Labiod.</source>
        <translation>Labiod.</translation>
    </message>
    <message>
        <source>Lat. approx.</source>
        <translation>Lat. Approx.</translation>
    </message>
    <message>
        <source>Lat. fricative</source>
        <translation>Lat. Frikativ</translation>
    </message>
    <message>
        <source>Nasal</source>
        <translation>Nasal</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Offen</translation>
    </message>
    <message>
        <source>Open-mid</source>
        <translation>Halboffen</translation>
    </message>
    <message>
        <source>Other consonants</source>
        <translation>Andere Konsonanten</translation>
    </message>
    <message>
        <source>Palatal</source>
        <translation>Palatal</translation>
    </message>
    <message>
        <source>Pharyng.</source>
        <translation>Pharyng.</translation>
    </message>
    <message>
        <source>Plosive</source>
        <translation>Plosiv</translation>
    </message>
    <message>
        <source>Postalv.</source>
        <translation>Postalv.</translation>
    </message>
    <message>
        <source>Retrofl.</source>
        <translation>Retrofl.</translation>
    </message>
    <message>
        <source>Suprasegmentals and tones</source>
        <translation>Suprasegmentalia und Töne</translation>
    </message>
    <message>
        <source>Tap, flap</source>
        <translation>Tap, Flap</translation>
    </message>
    <message>
        <source>Trill</source>
        <translation>Vibrant</translation>
    </message>
    <message>
        <source>Uvular</source>
        <translation>Uvular</translation>
    </message>
    <message>
        <source>Velar</source>
        <translation>Velar</translation>
    </message>
    <message>
        <source>Vowels</source>
        <translation>Vokale</translation>
    </message>
    <message>
        <source>advanced</source>
        <translation>vorverlagert</translation>
    </message>
    <message>
        <source>advanced tongue root</source>
        <translation>Zungenwurzel vorn</translation>
    </message>
    <message>
        <source>alveolar</source>
        <translation>alveolarer</translation>
    </message>
    <message>
        <source>alveolo-palatal</source>
        <translation>alveolopalataler</translation>
    </message>
    <message>
        <source>apical</source>
        <translation>apikal</translation>
    </message>
    <message>
        <source>approximant</source>
        <translation>Approximant</translation>
    </message>
    <message>
        <source>aspirated</source>
        <translation>aspiriert</translation>
    </message>
    <message>
        <source>back</source>
        <translation>hinterer</translation>
    </message>
    <message>
        <source>bilabial</source>
        <translation>bilabialer</translation>
    </message>
    <message>
        <source>breathy voiced</source>
        <translation>behaucht</translation>
    </message>
    <message>
        <source>central</source>
        <translation>zentraler</translation>
    </message>
    <message>
        <source>centralized</source>
        <translation>zentralisiert</translation>
    </message>
    <message>
        <source>click</source>
        <translation>Klick</translation>
    </message>
    <message>
        <source>close</source>
        <translation>geschlossener</translation>
    </message>
    <message>
        <source>close-mid</source>
        <translation>halbgeschlossener</translation>
    </message>
    <message>
        <source>creaky voiced</source>
        <translation>knarrend</translation>
    </message>
    <message>
        <source>dental</source>
        <translation>dentaler</translation>
    </message>
    <message>
        <source>ejective</source>
        <translation>Ejektiv</translation>
    </message>
    <message>
        <source>epiglottal</source>
        <translation>epiglottaler</translation>
    </message>
    <message>
        <source>extra high tone</source>
        <translation>extrahoher Ton</translation>
    </message>
    <message>
        <source>extra high tone over a vowel</source>
        <translation>extrahoher Ton über einem Vokal</translation>
    </message>
    <message>
        <source>extra low tone</source>
        <translation>extratiefer Ton</translation>
    </message>
    <message>
        <source>extra low tone over a vowel</source>
        <translation>extratiefer Ton über einem Vokal</translation>
    </message>
    <message>
        <source>extra-short</source>
        <translation>extrakurz</translation>
    </message>
    <message>
        <source>flap</source>
        <translation>Flap</translation>
    </message>
    <message>
        <source>fricative</source>
        <translation>Frikativ</translation>
    </message>
    <message>
        <source>front</source>
        <translation>vorderer</translation>
    </message>
    <message>
        <source>global fall</source>
        <translation>Fall im Ganzen</translation>
    </message>
    <message>
        <source>global rise</source>
        <translation>Anstieg im Ganzen</translation>
    </message>
    <message>
        <source>glottal</source>
        <translation>glottaler</translation>
    </message>
    <message>
        <source>half-long</source>
        <translation>halblang</translation>
    </message>
    <message>
        <source>high tone</source>
        <translation>hoher Ton</translation>
    </message>
    <message>
        <source>high tone over a vowel</source>
        <translation>hoher Ton über einem Vokal</translation>
    </message>
    <message>
        <source>implosive</source>
        <translation>Implosiv</translation>
    </message>
    <message>
        <source>labial-palatal</source>
        <translation>labial-palataler</translation>
    </message>
    <message>
        <source>labial-velar</source>
        <translation>labial-velarer</translation>
    </message>
    <message>
        <source>labialized</source>
        <translation>labialisiert</translation>
    </message>
    <message>
        <source>labiodental</source>
        <translation>labiodentaler</translation>
    </message>
    <message>
        <source>laminal</source>
        <translation>laminal</translation>
    </message>
    <message>
        <source>lateral</source>
        <translation>lateraler</translation>
    </message>
    <message>
        <source>lateral release</source>
        <translation>laterale Lösung</translation>
    </message>
    <message>
        <source>less rounded</source>
        <translation>weniger gerundet</translation>
    </message>
    <message>
        <source>linguolabial</source>
        <translation>linguolabial</translation>
    </message>
    <message>
        <source>linking</source>
        <translation>Bindung</translation>
    </message>
    <message>
        <source>long</source>
        <translation>lang</translation>
    </message>
    <message>
        <source>low tone</source>
        <translation>tiefer Ton</translation>
    </message>
    <message>
        <source>low tone over a vowel</source>
        <translation>tiefer Ton über einem Vokal</translation>
    </message>
    <message>
        <source>lowered</source>
        <translation>gesenkt</translation>
    </message>
    <message>
        <source>major group</source>
        <translation>große Gruppe</translation>
    </message>
    <message>
        <source>mid</source>
        <translation>mittlerer</translation>
    </message>
    <message>
        <source>mid tone</source>
        <translation>mittlerer Ton</translation>
    </message>
    <message>
        <source>mid tone over a vowel</source>
        <translation>mittlerer Ton über einem Vokal</translation>
    </message>
    <message>
        <source>mid-centralized</source>
        <translation>mittelzentralisiert</translation>
    </message>
    <message>
        <source>minor group</source>
        <translation>kleine Gruppe</translation>
    </message>
    <message>
        <source>more rounded</source>
        <translation>stärker gerundet</translation>
    </message>
    <message>
        <source>nasal</source>
        <translation>Nasal</translation>
    </message>
    <message>
        <source>nasal release</source>
        <translation>nasale Lösung</translation>
    </message>
    <message>
        <source>nasalized</source>
        <translation>nasaliert</translation>
    </message>
    <message>
        <source>near-back</source>
        <translation>fast hinterer</translation>
    </message>
    <message>
        <source>near-close</source>
        <translation>fast geschlossener</translation>
    </message>
    <message>
        <source>near-front</source>
        <translation>fast vorderer</translation>
    </message>
    <message>
        <source>near-open</source>
        <translation>fast offener</translation>
    </message>
    <message>
        <source>no audible release</source>
        <translation>ohne hörbare Lösung</translation>
    </message>
    <message>
        <source>non-syllabic</source>
        <translation>unsilbisch</translation>
    </message>
    <message>
        <source>open</source>
        <translation>offener</translation>
    </message>
    <message>
        <source>open-mid</source>
        <translation>halboffener</translation>
    </message>
    <message>
        <source>or</source>
        <translation>oder</translation>
    </message>
    <message>
        <source>palatal</source>
        <translation>palataler</translation>
    </message>
    <message>
        <source>palatalized</source>
        <translation>palatalisiert</translation>
    </message>
    <message>
        <source>palatoalveolar</source>
        <translation>palatoalveolarer</translation>
    </message>
    <message>
        <source>pharyngeal</source>
        <translation>pharyngaler</translation>
    </message>
    <message>
        <source>pharyngealized</source>
        <translation>pharyngalisiert</translation>
    </message>
    <message>
        <source>plosive</source>
        <translation>Plosiv</translation>
    </message>
    <message>
        <source>postalveolar</source>
        <translation>postalveolarer</translation>
    </message>
    <message>
        <source>primary stress</source>
        <translation>Hauptbetonung</translation>
    </message>
    <message>
        <source>raised</source>
        <translation>angehoben</translation>
    </message>
    <message>
        <source>retracted</source>
        <translation>rückverlagert</translation>
    </message>
    <message>
        <source>retracted tongue root</source>
        <translation>Zungenwurzel hinten</translation>
    </message>
    <message>
        <source>retroflex</source>
        <translation>retroflexer</translation>
    </message>
    <message>
        <source>rhoticity</source>
        <translation>Rhotazität</translation>
    </message>
    <message>
        <source>rounded</source>
        <translation>gerundeter</translation>
    </message>
    <message>
        <source>secondary stress</source>
        <translation>Nebenbetonung</translation>
    </message>
    <message>
        <source>syllabic</source>
        <translation>silbisch</translation>
    </message>
    <message>
        <source>syllable break</source>
        <translation>Silbengrenze</translation>
    </message>
    <message>
        <source>tap</source>
        <translation>Tap</translation>
    </message>
    <message>
        <source>tie bar</source>
        <translation>Bindebogen</translation>
    </message>
    <message>
        <source>trill</source>
        <translation>Vibrant</translation>
    </message>
    <message>
        <source>unrounded</source>
        <translation>ungerundeter</translation>
    </message>
    <message>
        <source>uvular</source>
        <translation>uvularer</translation>
    </message>
    <message>
        <source>velar</source>
        <translation>velarer</translation>
    </message>
    <message>
        <source>velarized</source>
        <translation>velarisiert</translation>
    </message>
    <message>
        <source>velarized or pharyngealized</source>
        <translation>velarisiert oder pharyngalisiert</translation>
    </message>
    <message>
        <source>voiced</source>
        <translation>stimmhafter</translation>
    </message>
    <message>
        <source>voiceless</source>
        <translation>stimmloser</translation>
    </message>
    <message>
        <source>vowel</source>
        <translation>Vokal</translation>
    </message>
</context>
</TS>
