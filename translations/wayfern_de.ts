<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>BaseDlg</name>
    <message>
        <source>Base Info</source>
        <translation>Grunddaten</translation>
    </message>
    <message>
        <source>select the box, if enabled</source>
        <translation>aus der Liste wählen, wenn sie aktiv ist</translation>
    </message>
    <message>
        <source>ComboBox used for different purposes.
If e.g. the currency type has to be
entered, this combobox will show
the possibilities.</source>
        <translation>Auswahlliste für verschiedene Zwecke.
Muss z. B. die Währungsart eingegeben
werden, zeigt diese Liste die
Möglichkeiten.</translation>
    </message>
    <message>
        <source>OKButton</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>confirms the changes.
If pressed, all changed will be stored.</source>
        <translation>übernimmt die Änderungen.
Alle Änderungen werden gespeichert.</translation>
    </message>
    <message>
        <source>CancelButton</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>all changes will be lost,
if this button is pressed.

The user is asked to confirm
the cancellation.</source>
        <translation>Alle Änderungen gehen verloren,
wenn dieser Knopf gedrückt wird.

Der Benutzer muss den Abbruch
bestätigen.</translation>
    </message>
    <message>
        <source>ClearButton</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>This button clears the EditLine.</source>
        <translation>Dieser Knopf leert die Eingabezeile.</translation>
    </message>
    <message>
        <source>EditorLine</source>
        <translation>Eingabezeile</translation>
    </message>
    <message>
        <source>Enter the data for the
selected listviewitem here.</source>
        <translation>Hier die Daten für den
gewählten Listeneintrag eingeben.</translation>
    </message>
    <message>
        <source>SelectorButton</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>This button is used for different
purposes.
E.g. in case of date input, the button
opens a calendar for date input.</source>
        <translation>Dieser Knopf dient verschiedenen
Zwecken.
Z. B. öffnet er bei der Eingabe
eines Datums einen Kalender.</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>select an item to edit</source>
        <translation>einen Eintrag zum Bearbeiten wählen</translation>
    </message>
    <message>
        <source>ListView with TipData</source>
        <translation>Liste mit den Daten</translation>
    </message>
    <message>
        <source>item</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>content</source>
        <translation>Inhalt</translation>
    </message>
</context>
<context>
    <name>CalenderDlg</name>
    <message>
        <source>Calender</source>
        <translation>Kalender</translation>
    </message>
    <message>
        <source>choose the month, you want</source>
        <translation>den gewünschten Monat wählen</translation>
    </message>
    <message>
        <source>combobox with month names</source>
        <translation>Auswahl der Monate</translation>
    </message>
    <message>
        <source>choose the year</source>
        <translation>das Jahr wählen</translation>
    </message>
    <message>
        <source>spinbox for year change</source>
        <translation>Feld zum Ändern des Jahres</translation>
    </message>
    <message>
        <source>OKButton</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>confirms the changes and 
closes the form.</source>
        <translation>übernimmt die Änderungen und 
schließt das Formular.</translation>
    </message>
    <message>
        <source>CancelButton</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>cancels the changes and 
closes the form.</source>
        <translation>verwirft die Änderungen und 
schließt das Formular.</translation>
    </message>
    <message>
        <source>choose the day, you want to select</source>
        <translation>den gewünschten Tag wählen</translation>
    </message>
    <message>
        <source>table with days of the selected month</source>
        <translation>Tabelle mit den Tagen des gewählten Monats</translation>
    </message>
</context>
<context>
    <name>CostsDlg</name>
    <message>
        <source>Costs</source>
        <translation>Kosten</translation>
    </message>
    <message>
        <source>select the box, if enabled</source>
        <translation>aus der Liste wählen, wenn sie aktiv ist</translation>
    </message>
    <message>
        <source>ComboBox used for different purposes.
If e.g. the currency type has to be
entered, this combobox will show
the possibilities.</source>
        <translation>Auswahlliste für verschiedene Zwecke.
Muss z. B. die Währungsart eingegeben
werden, zeigt diese Liste die
Möglichkeiten.</translation>
    </message>
    <message>
        <source>UserShareButton</source>
        <translation>Aufteilung</translation>
    </message>
    <message>
        <source>opens the user share dialog.
The costs are shared amoung the users.</source>
        <translation>öffnet den Dialog zur Aufteilung.
Die Kosten werden auf die Reisenden aufgeteilt.</translation>
    </message>
    <message>
        <source>OKButton</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>confirms the changes.
If pressed, all changed will be stored.</source>
        <translation>übernimmt die Änderungen.
Alle Änderungen werden gespeichert.</translation>
    </message>
    <message>
        <source>CancelButton</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>all changes will be lost,
if this button is pressed.

The user is asked to confirm
the cancellation.</source>
        <translation>Alle Änderungen gehen verloren,
wenn dieser Knopf gedrückt wird.

Der Benutzer muss den Abbruch
bestätigen.</translation>
    </message>
    <message>
        <source>ClearButton</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>clear the EditLine</source>
        <translation>die Eingabezeile leeren</translation>
    </message>
    <message>
        <source>EditLine</source>
        <translation>Eingabezeile</translation>
    </message>
    <message>
        <source>EditorLine for selected entries</source>
        <translation>Eingabezeile für den gewählten Eintrag</translation>
    </message>
    <message>
        <source>SelectorButton</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>This button is used for different
purposes.
E.g. in case of date input, the button
opens a calendar for date input.</source>
        <translation>Dieser Knopf dient verschiedenen
Zwecken.
Z. B. öffnet er bei der Eingabe
eines Datums einen Kalender.</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>select an item to edit</source>
        <translation>einen Eintrag zum Bearbeiten wählen</translation>
    </message>
    <message>
        <source>ListView with CostsData.</source>
        <translation>Liste der Kosten.</translation>
    </message>
    <message>
        <source>item</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>content</source>
        <translation>Inhalt</translation>
    </message>
</context>
<context>
    <name>CurrDlg</name>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>select the box, if enabled</source>
        <translation>aus der Liste wählen, wenn sie aktiv ist</translation>
    </message>
    <message>
        <source>ComboBox used for different purposes.
If e.g. the currency type has to be
entered, this combobox will show
the possibilities.</source>
        <translation>Auswahlliste für verschiedene Zwecke.
Muss z. B. die Währungsart eingegeben
werden, zeigt diese Liste die
Möglichkeiten.</translation>
    </message>
    <message>
        <source>OKButton</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>confirms the changes.
If pressed, all changed will be stored.</source>
        <translation>übernimmt die Änderungen.
Alle Änderungen werden gespeichert.</translation>
    </message>
    <message>
        <source>CancleButton</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>all changes will be lost,
if this button is pressed.

The user is asked to confirm
the cancellation.</source>
        <translation>Alle Änderungen gehen verloren,
wenn dieser Knopf gedrückt wird.

Der Benutzer muss den Abbruch
bestätigen.</translation>
    </message>
    <message>
        <source>ClearButton</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>This button clears the EditLine.</source>
        <translation>Dieser Knopf leert die Eingabezeile.</translation>
    </message>
    <message>
        <source>EditLine</source>
        <translation>Eingabezeile</translation>
    </message>
    <message>
        <source>Enter the data for the
selected listviewitem here.</source>
        <translation>Hier die Daten für den
gewählten Listeneintrag eingeben.</translation>
    </message>
    <message>
        <source>SelectButton</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>This button is used for different
purposes.
E.g. in case of date input, the button
opens a calendar for date input.</source>
        <translation>Dieser Knopf dient verschiedenen
Zwecken.
Z. B. öffnet er bei der Eingabe
eines Datums einen Kalender.</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>BaseLineEdit</source>
        <translation>Basiswährung</translation>
    </message>
    <message>
        <source>shows the base currency type.</source>
        <translation>zeigt die Basiswährung.</translation>
    </message>
    <message>
        <source>Base</source>
        <translation>Basis</translation>
    </message>
    <message>
        <source>select an item to edit</source>
        <translation>einen Eintrag zum Bearbeiten wählen</translation>
    </message>
    <message>
        <source>ListView with the currency 
related data.</source>
        <translation>Liste mit den Daten 
der Währung.</translation>
    </message>
    <message>
        <source>entry</source>
        <translation>Eintrag</translation>
    </message>
    <message>
        <source>content</source>
        <translation>Inhalt</translation>
    </message>
</context>
<context>
    <name>CurrListDlg</name>
    <message>
        <source>Curreny List</source>
        <translation>Währungsliste</translation>
    </message>
    <message>
        <source>Base currency</source>
        <translation>Basiswährung</translation>
    </message>
    <message>
        <source>BaseCurrencyLabel</source>
        <translation>Basiswährung</translation>
    </message>
    <message>
        <source>shows the actual base currency</source>
        <translation>zeigt die aktuelle Basiswährung</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>StatusLabel</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>shows the status while the synchronisation
is active.</source>
        <translation>zeigt den Stand, während der Abgleich
läuft.</translation>
    </message>
    <message>
        <source>AppendButton</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>appends a new currency to
the currency list.
This will open an empty currency dialog
to fill in the data.</source>
        <translation>fügt der Währungsliste eine neue
Währung hinzu.
Dazu öffnet sich ein leerer Währungsdialog
für die Daten.</translation>
    </message>
    <message>
        <source>ChangeButton</source>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>changes the data of an existing currency.
The currency to be changed has to be selected.</source>
        <translation>ändert die Daten einer vorhandenen Währung.
Die Währung muss ausgewählt sein.</translation>
    </message>
    <message>
        <source>DeleteButton</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>deletes the selected currency from the list.
The user is asked to confirm the
action.</source>
        <translation>löscht die gewählte Währung aus der Liste.
Der Benutzer muss das Löschen
bestätigen.</translation>
    </message>
    <message>
        <source>SyncButton</source>
        <translation>Kurse abgleichen</translation>
    </message>
    <message>
        <source>SyncButton
synchronizes the currency exchange rates
with the yahoo website (if internet is available)</source>
        <translation>Kurse abgleichen
holt die Wechselkurse der Währungen
vom Kursdienst (wenn das Internet erreichbar ist)</translation>
    </message>
    <message>
        <source>SyncListButton</source>
        <translation>Katalog</translation>
    </message>
    <message>
        <source>shows a list with all availble currencies
on the yahoo web site. The user
can select one or more from this list
to use them in the program.</source>
        <translation>zeigt eine Liste aller Währungen
des Kursdienstes. Der Benutzer
kann eine oder mehrere davon wählen,
um sie im Programm zu verwenden.</translation>
    </message>
    <message>
        <source>CloseButton</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>closes the form and stores
the changes</source>
        <translation>schließt das Formular und speichert
die Änderungen</translation>
    </message>
    <message>
        <source>CurrencyList</source>
        <translation>Währungsliste</translation>
    </message>
    <message>
        <source>This list shows the different currencies used during
the journey.</source>
        <translation>Diese Liste zeigt die auf der Reise verwendeten
Währungen.</translation>
    </message>
    <message>
        <source>currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>factor</source>
        <translation>Faktor</translation>
    </message>
    <message>
        <source>Full name</source>
        <translation>Voller Name</translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>Wayfern help</source>
        <translation>Wayfern-Hilfe</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>The help page %1 was not found.</source>
        <translation>Die Hilfeseite %1 wurde nicht gefunden.</translation>
    </message>
</context>
<context>
    <name>JourneyReport</name>
    <message>
        <source>Journey</source>
        <translation>Reise</translation>
    </message>
    <message>
        <source>(no type)</source>
        <translation>(ohne Art)</translation>
    </message>
    <message>
        <source>%1 pays %2 %3 %4</source>
        <translation>%1 zahlt %2 %3 %4</translation>
    </message>
    <message>
        <source>No costs yet.</source>
        <translation>Noch keine Kosten.</translation>
    </message>
    <message>
        <source>%1 to %2, 1 day</source>
        <translation>%1 bis %2, 1 Tag</translation>
    </message>
    <message>
        <source>%1 to %2, %3 days</source>
        <translation>%1 bis %2, %3 Tage</translation>
    </message>
    <message>
        <source>Total: %1 %2 in %3 costs</source>
        <translation>Summe: %1 %2 in %3 Kosten</translation>
    </message>
    <message>
        <source>Per day: %1 %2</source>
        <translation>Pro Tag: %1 %2</translation>
    </message>
    <message>
        <source>Left unbooked by the division of shared costs: %1 %2</source>
        <translation>Bei der Teilung gemeinsamer Kosten nicht gebucht: %1 %2</translation>
    </message>
    <message>
        <source>Spending by category</source>
        <translation>Ausgaben nach Art</translation>
    </message>
    <message>
        <source>category</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Spending by traveller</source>
        <translation>Ausgaben nach Reisendem</translation>
    </message>
    <message>
        <source>traveller</source>
        <translation>Reisender</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>deposits</source>
        <translation>Einzahlungen</translation>
    </message>
    <message>
        <source>shares of costs</source>
        <translation>Kostenanteile</translation>
    </message>
    <message>
        <source>pay-offs</source>
        <translation>Auszahlungen</translation>
    </message>
    <message>
        <source>balance</source>
        <translation>Saldo</translation>
    </message>
    <message>
        <source>Balances</source>
        <translation>Salden</translation>
    </message>
    <message>
        <source>Settlement plan</source>
        <translation>Abrechnungsplan</translation>
    </message>
    <message>
        <source>Costs</source>
        <translation>Kosten</translation>
    </message>
    <message>
        <source>date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>value</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>shared</source>
        <translation>geteilt</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>kitty</source>
        <translation>Kasse</translation>
    </message>
    <message>
        <source>Nobody owes anybody anything.</source>
        <translation>Niemand schuldet jemandem etwas.</translation>
    </message>
    <message>
        <source>%1 %2 %3, shares %4</source>
        <translation>%1 %2 %3, Anteile %4</translation>
    </message>
    <message>
        <source>Left unbooked because the shares of these costs do not add up to them: %1 %2</source>
        <translation>Nicht gebucht, weil die Anteile dieser Kosten nicht ihren Betrag ergeben: %1 %2</translation>
    </message>
    <message>
        <source>These are the fewest transfers possible.</source>
        <translation>Das sind die wenigsten möglichen Überweisungen.</translation>
    </message>
    <message>
        <source>The plan may not be the fewest transfers possible: too many travellers owe or are owed to prove it.</source>
        <translation>Der Plan braucht vielleicht nicht die wenigsten Überweisungen: zu viele Reisende schulden oder bekommen Geld, um es zu beweisen.</translation>
    </message>
</context>
<context>
    <name>JourneyUndo</name>
    <message>
        <source>sort by date</source>
        <translation>nach Datum sortieren</translation>
    </message>
</context>
<context>
    <name>MainDlg1</name>
    <message>
        <source>WayFern</source>
        <translation>WayFern</translation>
    </message>
    <message>
        <source>OverView</source>
        <translation>Übersicht</translation>
    </message>
    <message>
        <source>&amp;Over</source>
        <translation>Ü&amp;bersicht</translation>
    </message>
    <message>
        <source>This ListView shows the 
overview information</source>
        <translation>Diese Liste zeigt die 
Übersicht</translation>
    </message>
    <message>
        <source>item</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>content</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>&amp;Costs</source>
        <translation>&amp;Kosten</translation>
    </message>
    <message>
        <source>AppendButton</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>appends a new costs entry to
the costs list.
This will open an empty costs dialog
to fill in the data.</source>
        <translation>fügt der Kostenliste einen neuen
Eintrag hinzu.
Dazu öffnet sich ein leerer Kostendialog
für die Daten.</translation>
    </message>
    <message>
        <source>ChangeButton</source>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>changes the data of an existing costs entry.
The entry to be changed has to be selected.</source>
        <translation>ändert die Daten eines vorhandenen Kosteneintrags.
Der Eintrag muss ausgewählt sein.</translation>
    </message>
    <message>
        <source>DeleteButton</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>deletes the selected costs entry from the list.
The user is asked to confirm the
action.</source>
        <translation>löscht den gewählten Kosteneintrag aus der Liste.
Der Benutzer muss das Löschen
bestätigen.</translation>
    </message>
    <message>
        <source>CopyButton</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>pastes the temp buffer into the costs
list (on top of the selected entry).</source>
        <translation>fügt den Zwischenspeicher in die
Kostenliste ein (über dem gewählten Eintrag).</translation>
    </message>
    <message>
        <source>PasteButton</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>pastes the temp buffer into the costs 
list (on top of the selected entry).</source>
        <translation>fügt den Zwischenspeicher in die 
Kostenliste ein (über dem gewählten Eintrag).</translation>
    </message>
    <message>
        <source>CostsListView</source>
        <translation>Kostenliste</translation>
    </message>
    <message>
        <source>This listview shows the
costs list.</source>
        <translation>Diese Liste zeigt die
Kosten.</translation>
    </message>
    <message>
        <source>date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>tp</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>base</source>
        <translation>Basis</translation>
    </message>
    <message>
        <source>foreign</source>
        <translation>Fremd</translation>
    </message>
    <message>
        <source>fcurr</source>
        <translation>Whg.</translation>
    </message>
    <message>
        <source>&amp;Tip</source>
        <translation>&amp;Tipps</translation>
    </message>
    <message>
        <source>appends a new tip entry to
the tip list.
This will open an empty tip dialog
to fill in the data.</source>
        <translation>fügt der Tippliste einen neuen
Tipp hinzu.
Dazu öffnet sich ein leerer Tippdialog
für die Daten.</translation>
    </message>
    <message>
        <source>changes the data of an existing tip entry.
The entry to be changed has to be selected.</source>
        <translation>ändert die Daten eines vorhandenen Tipps.
Der Tipp muss ausgewählt sein.</translation>
    </message>
    <message>
        <source>deletes the selected tip entry from the list.
The user is asked to confirm the
action.</source>
        <translation>löscht den gewählten Tipp aus der Liste.
Der Benutzer muss das Löschen
bestätigen.</translation>
    </message>
    <message>
        <source>this button copies the selected tip entry
into a temp buffer (for paste).</source>
        <translation>dieser Knopf kopiert den gewählten Tipp
in einen Zwischenspeicher (zum Einfügen).</translation>
    </message>
    <message>
        <source>pastes the temp buffer into the tip 
list (on top of the selected entry).</source>
        <translation>fügt den Zwischenspeicher in die 
Tippliste ein (über dem gewählten Eintrag).</translation>
    </message>
    <message>
        <source>type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>tip</source>
        <translation>Tipp</translation>
    </message>
    <message>
        <source>quality</source>
        <translation>Qualität</translation>
    </message>
</context>
<context>
    <name>Refusal</name>
    <message>
        <source>Input refused</source>
        <translation>Eingabe abgelehnt</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is no number.
Nothing was stored; please correct the entry.</source>
        <translation>%1: „%2“ ist keine Zahl.
Es wurde nichts gespeichert; bitte die Eingabe berichtigen.</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is no date.
Nothing was stored; please pick a date.</source>
        <translation>%1: „%2“ ist kein Datum.
Es wurde nichts gespeichert; bitte ein Datum wählen.</translation>
    </message>
</context>
<context>
    <name>ReportWriter</name>
    <message>
        <source>page %1</source>
        <translation>Seite %1</translation>
    </message>
    <message>
        <source>The PDF could not be painted.</source>
        <translation>Das PDF konnte nicht gezeichnet werden.</translation>
    </message>
</context>
<context>
    <name>SaveChangesQuestion</name>
    <message>
        <source>You have modified the data!
Do you want to save the changes ?</source>
        <translation>Sie haben die Daten geändert!
Wollen Sie die Änderungen speichern?</translation>
    </message>
</context>
<context>
    <name>ScQtFileDlg</name>
    <message>
        <source>FileDlg</source>
        <translation>Dateiauswahl</translation>
    </message>
    <message>
        <source>file type filter</source>
        <translation>Dateitypfilter</translation>
    </message>
    <message>
        <source>ComboBox FileTypeFilter

edit or select the filter</source>
        <translation>Dateitypfilter

Filter eingeben oder auswählen</translation>
    </message>
    <message>
        <source>confirms the selection and closes the form</source>
        <translation>übernimmt die Auswahl und schließt das Formular</translation>
    </message>
    <message>
        <source>OKButton</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>cancels the selection and closes the form</source>
        <translation>verwirft die Auswahl und schließt das Formular</translation>
    </message>
    <message>
        <source>CancelButton</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>shows the selected filename</source>
        <translation>zeigt den gewählten Dateinamen</translation>
    </message>
    <message>
        <source>Filename LineEdit

shows the selected file
and allows the direct filename
edit</source>
        <translation>Dateiname

zeigt die gewählte Datei
und erlaubt, den Dateinamen
direkt einzugeben</translation>
    </message>
    <message>
        <source>ComboBox Directory 
edit or select the directories name</source>
        <translation>Verzeichnisauswahl 
Verzeichnisnamen eingeben oder auswählen</translation>
    </message>
    <message>
        <source>directory listview</source>
        <translation>Verzeichnisliste</translation>
    </message>
    <message>
        <source>Directory ListView

shows the list of dirs and files</source>
        <translation>Verzeichnisliste

zeigt die Verzeichnisse und Dateien</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>type</source>
        <translation>Typ</translation>
    </message>
</context>
<context>
    <name>ScQtFileEditDlg</name>
    <message>
        <source>dir</source>
        <translation>Verz.</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>link</source>
        <translation>Link</translation>
    </message>
</context>
<context>
    <name>SettleDlg</name>
    <message>
        <source>Settle up</source>
        <translation>Abrechnen</translation>
    </message>
    <message>
        <source>BalanceList</source>
        <translation>Salden</translation>
    </message>
    <message>
        <source>The balance of every traveller and of the kitty.
A positive balance is owed to its holder,
a negative one is owed by him.
Together they add up to zero.</source>
        <translation>Der Saldo jedes Reisenden und der Kasse.
Ein positiver Saldo steht seinem Inhaber zu,
einen negativen schuldet er.
Zusammen ergeben sie null.</translation>
    </message>
    <message>
        <source>traveller</source>
        <translation>Reisender</translation>
    </message>
    <message>
        <source>balance</source>
        <translation>Saldo</translation>
    </message>
    <message>
        <source>UnbookedLabel</source>
        <translation>Nicht gebucht</translation>
    </message>
    <message>
        <source>Settle with one traveller</source>
        <translation>Mit einem Reisenden abrechnen</translation>
    </message>
    <message>
        <source>SettleWithCheckBox</source>
        <translation>Mit einem Reisenden abrechnen</translation>
    </message>
    <message>
        <source>Everybody settles with the traveller
chosen beside, instead of the plan
with the fewest transfers.</source>
        <translation>Alle rechnen mit dem daneben gewählten
Reisenden ab, statt nach dem Plan
mit den wenigsten Überweisungen.</translation>
    </message>
    <message>
        <source>SettleWithComboBox</source>
        <translation>Reisender für die Abrechnung</translation>
    </message>
    <message>
        <source>The traveller everybody settles with.</source>
        <translation>Der Reisende, mit dem alle abrechnen.</translation>
    </message>
    <message>
        <source>PlanList</source>
        <translation>Zahlungsplan</translation>
    </message>
    <message>
        <source>Who pays whom to settle the journey.</source>
        <translation>Wer wem zahlt, um die Reise abzurechnen.</translation>
    </message>
    <message>
        <source>transfer</source>
        <translation>Überweisung</translation>
    </message>
    <message>
        <source>Book the plan</source>
        <translation>Plan buchen</translation>
    </message>
    <message>
        <source>BookButton</source>
        <translation>Plan buchen</translation>
    </message>
    <message>
        <source>Books each transfer as a deposit of the payer
and a pay-off of the receiver, dated today.
Afterwards every balance is 0.00.
The user is asked to confirm the action.</source>
        <translation>Bucht jede Überweisung als Einzahlung des Zahlers
und Auszahlung des Empfängers mit heutigem Datum.
Danach ist jeder Saldo 0.00.
Der Benutzer muss die Aktion bestätigen.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>CloseButton</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>closes the form.</source>
        <translation>schließt das Formular.</translation>
    </message>
    <message>
        <source>What the shares of shared costs
leave to nobody. Shares add up to their cost;
costs whose shares do not are listed here.</source>
        <translation>Was die Anteile geteilter Kosten
niemandem zuordnen. Anteile ergeben ihren Betrag;
Kosten, bei denen das nicht so ist, stehen hier.</translation>
    </message>
</context>
<context>
    <name>SyncListDlg</name>
    <message>
        <source>synclist</source>
        <translation>Katalog</translation>
    </message>
    <message>
        <source>OKButton</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>confirms the changes.
If pressed, all changed will be stored.</source>
        <translation>übernimmt die Änderungen.
Alle Änderungen werden gespeichert.</translation>
    </message>
    <message>
        <source>CancelButton</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>all changes will be lost,
if this button is pressed.

The user is asked to confirm
the cancellation.</source>
        <translation>Alle Änderungen gehen verloren,
wenn dieser Knopf gedrückt wird.

Der Benutzer muss den Abbruch
bestätigen.</translation>
    </message>
    <message>
        <source>select an item to edit</source>
        <translation>einen Eintrag zum Bearbeiten wählen</translation>
    </message>
    <message>
        <source>This list shows the available
currency types. By selecting
one or more and confirming,
the selected are stored into
the currency list.</source>
        <translation>Diese Liste zeigt die verfügbaren
Währungen. Wer eine oder
mehrere wählt und bestätigt,
übernimmt sie in die
Währungsliste.</translation>
    </message>
    <message>
        <source>short</source>
        <translation>Kürzel</translation>
    </message>
    <message>
        <source>full name</source>
        <translation>Voller Name</translation>
    </message>
</context>
<context>
    <name>TipDlg</name>
    <message>
        <source>Tip</source>
        <translation>Tipp</translation>
    </message>
    <message>
        <source>select the box, if enabled</source>
        <translation>aus der Liste wählen, wenn sie aktiv ist</translation>
    </message>
    <message>
        <source>ComboBox used for different purposes.
If e.g. the currency type has to be
entered, this combobox will show
the possibilities.</source>
        <translation>Auswahlliste für verschiedene Zwecke.
Muss z. B. die Währungsart eingegeben
werden, zeigt diese Liste die
Möglichkeiten.</translation>
    </message>
    <message>
        <source>OKButton</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>confirms the changes.
If pressed, all changed will be stored.</source>
        <translation>übernimmt die Änderungen.
Alle Änderungen werden gespeichert.</translation>
    </message>
    <message>
        <source>CancelButton</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>all changes will be lost,
if this button is pressed.

The user is asked to confirm
the cancellation.</source>
        <translation>Alle Änderungen gehen verloren,
wenn dieser Knopf gedrückt wird.

Der Benutzer muss den Abbruch
bestätigen.</translation>
    </message>
    <message>
        <source>ClearButton</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>This button clears the EditLine.</source>
        <translation>Dieser Knopf leert die Eingabezeile.</translation>
    </message>
    <message>
        <source>EditLine</source>
        <translation>Eingabezeile</translation>
    </message>
    <message>
        <source>Enter the data for the
selected listviewitem here.</source>
        <translation>Hier die Daten für den
gewählten Listeneintrag eingeben.</translation>
    </message>
    <message>
        <source>SelectButton</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>This button is used for different
purposes.
E.g. in case of date input, the button
opens a calendar for date input.</source>
        <translation>Dieser Knopf dient verschiedenen
Zwecken.
Z. B. öffnet er bei der Eingabe
eines Datums einen Kalender.</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>select an item to edit</source>
        <translation>einen Eintrag zum Bearbeiten wählen</translation>
    </message>
    <message>
        <source>ListView with TipData</source>
        <translation>Liste mit den Daten</translation>
    </message>
    <message>
        <source>item</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>content</source>
        <translation>Inhalt</translation>
    </message>
</context>
<context>
    <name>UserCashDlg</name>
    <message>
        <source>Form1</source>
        <translation>Formular</translation>
    </message>
    <message>
        <source>select the box, if enabled</source>
        <translation>aus der Liste wählen, wenn sie aktiv ist</translation>
    </message>
    <message>
        <source>ComboBox used for different purposes.
If e.g. the currency type has to be
entered, this combobox will show
the possibilities.</source>
        <translation>Auswahlliste für verschiedene Zwecke.
Muss z. B. die Währungsart eingegeben
werden, zeigt diese Liste die
Möglichkeiten.</translation>
    </message>
    <message>
        <source>OKButton</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>confirms the changes.
If pressed, all changed will be stored.</source>
        <translation>übernimmt die Änderungen.
Alle Änderungen werden gespeichert.</translation>
    </message>
    <message>
        <source>CancelButton</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>all changes will be lost,
if this button is pressed.

The user is asked to confirm
the cancellation.</source>
        <translation>Alle Änderungen gehen verloren,
wenn dieser Knopf gedrückt wird.

Der Benutzer muss den Abbruch
bestätigen.</translation>
    </message>
    <message>
        <source>EditLine</source>
        <translation>Eingabezeile</translation>
    </message>
    <message>
        <source>Enter the data for the
selected listviewitem here.</source>
        <translation>Hier die Daten für den
gewählten Listeneintrag eingeben.</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>DateLabel</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>This label shows the date witch
is stored into the users account.</source>
        <translation>Dieses Feld zeigt das Datum, das
im Konto des Reisenden gebucht wird.</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>SelectButton</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>This button is used for different
purposes.
E.g. in case of date input, the button
opens a calendar for date input.</source>
        <translation>Dieser Knopf dient verschiedenen
Zwecken.
Z. B. öffnet er bei der Eingabe
eines Datums einen Kalender.</translation>
    </message>
</context>
<context>
    <name>UserDlg</name>
    <message>
        <source>User</source>
        <translation>Reisender</translation>
    </message>
    <message>
        <source>select the box, if enabled</source>
        <translation>aus der Liste wählen, wenn sie aktiv ist</translation>
    </message>
    <message>
        <source>ComboBox used for different purposes.
If e.g. the currency type has to be
entered, this combobox will show
the possibilities.</source>
        <translation>Auswahlliste für verschiedene Zwecke.
Muss z. B. die Währungsart eingegeben
werden, zeigt diese Liste die
Möglichkeiten.</translation>
    </message>
    <message>
        <source>OKButton</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>confirms the changes.
If pressed, all changed will be stored.</source>
        <translation>übernimmt die Änderungen.
Alle Änderungen werden gespeichert.</translation>
    </message>
    <message>
        <source>CancelButton</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>all changes will be lost,
if this button is pressed.

The user is asked to confirm
the cancellation.</source>
        <translation>Alle Änderungen gehen verloren,
wenn dieser Knopf gedrückt wird.

Der Benutzer muss den Abbruch
bestätigen.</translation>
    </message>
    <message>
        <source>ClearButton</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>This button clears the EditLine.</source>
        <translation>Dieser Knopf leert die Eingabezeile.</translation>
    </message>
    <message>
        <source>EditLine</source>
        <translation>Eingabezeile</translation>
    </message>
    <message>
        <source>Enter the data for the
selected listviewitem here.</source>
        <translation>Hier die Daten für den
gewählten Listeneintrag eingeben.</translation>
    </message>
    <message>
        <source>SelectButton</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>This button is used for different
purposes.
E.g. in case of date input, the button
opens a calendar for date input.</source>
        <translation>Dieser Knopf dient verschiedenen
Zwecken.
Z. B. öffnet er bei der Eingabe
eines Datums einen Kalender.</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>select an item to edit</source>
        <translation>einen Eintrag zum Bearbeiten wählen</translation>
    </message>
    <message>
        <source>ListView with TipData</source>
        <translation>Liste mit den Daten</translation>
    </message>
    <message>
        <source>item</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>content</source>
        <translation>Inhalt</translation>
    </message>
</context>
<context>
    <name>UserKtoDlg</name>
    <message>
        <source>Form1</source>
        <translation>Formular</translation>
    </message>
    <message>
        <source>value</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>Shows the users amount of money.</source>
        <translation>Zeigt den Betrag des Reisenden.</translation>
    </message>
    <message>
        <source>CloseButton</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>This button closes the form.</source>
        <translation>Dieser Knopf schließt das Formular.</translation>
    </message>
    <message>
        <source>show the users aacount</source>
        <translation>Konto des Reisenden zeigen</translation>
    </message>
    <message>
        <source>The list shows the user account.</source>
        <translation>Die Liste zeigt das Konto des Reisenden.</translation>
    </message>
    <message>
        <source>date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>change</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>total</source>
        <translation>Summe</translation>
    </message>
</context>
<context>
    <name>UserListDlg</name>
    <message>
        <source>User List</source>
        <translation>Reisende</translation>
    </message>
    <message>
        <source>AppendButton</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>appends a new user to
the user list.
This will open an empty user dialog
to fill in the data.</source>
        <translation>fügt der Liste einen neuen
Reisenden hinzu.
Dazu öffnet sich ein leerer Reisendendialog
für die Daten.</translation>
    </message>
    <message>
        <source>ChangeButton</source>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>changes the data of an existing user.
The user to be changed has to be selected.</source>
        <translation>ändert die Daten eines vorhandenen Reisenden.
Der Reisende muss ausgewählt sein.</translation>
    </message>
    <message>
        <source>DeleteButton</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>deletes the selected user from the list.
The user is asked to confirm the
action.</source>
        <translation>löscht den gewählten Reisenden aus der Liste.
Der Benutzer muss das Löschen
bestätigen.</translation>
    </message>
    <message>
        <source>AccountButton</source>
        <translation>Konto</translation>
    </message>
    <message>
        <source>opens a dialog with the users
actual account.</source>
        <translation>öffnet einen Dialog mit dem
aktuellen Konto des Reisenden.</translation>
    </message>
    <message>
        <source>DepositButton</source>
        <translation>Einzahlung</translation>
    </message>
    <message>
        <source>opens a dialog for a users cash deposit into his account.</source>
        <translation>öffnet einen Dialog für eine Einzahlung auf das Konto des Reisenden.</translation>
    </message>
    <message>
        <source>PayOffButton</source>
        <translation>Auszahlung</translation>
    </message>
    <message>
        <source>opens a dialog for a users 
cash pay off from his account.</source>
        <translation>öffnet einen Dialog für eine 
Auszahlung vom Konto des Reisenden.</translation>
    </message>
    <message>
        <source>CloseButton</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>closes the form and stores
the changes</source>
        <translation>schließt das Formular und speichert
die Änderungen</translation>
    </message>
    <message>
        <source>This list shows the users available.</source>
        <translation>Diese Liste zeigt die Reisenden.</translation>
    </message>
    <message>
        <source>short</source>
        <translation>Kürzel</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>first n.</source>
        <translation>Vorn.</translation>
    </message>
    <message>
        <source>value</source>
        <translation>Betrag</translation>
    </message>
</context>
<context>
    <name>UserPayDlg</name>
    <message>
        <source>Form1</source>
        <translation>Formular</translation>
    </message>
    <message>
        <source>value</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>Amount of money to share
between users</source>
        <translation>Betrag, der unter den
Reisenden aufgeteilt wird</translation>
    </message>
    <message>
        <source>OKButton</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>confirms the changes.
If pressed, all changed will be stored.</source>
        <translation>übernimmt die Änderungen.
Alle Änderungen werden gespeichert.</translation>
    </message>
    <message>
        <source>CancelButton</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>all changes will be lost,
if this button is pressed.

The user is asked to confirm
the cancellation.</source>
        <translation>Alle Änderungen gehen verloren,
wenn dieser Knopf gedrückt wird.

Der Benutzer muss den Abbruch
bestätigen.</translation>
    </message>
    <message>
        <source>ShareButton</source>
        <translation>Teilen</translation>
    </message>
    <message>
        <source>shares the value (in the valuefield)
among all users.
The user is asked to confirm this.</source>
        <translation>teilt den Betrag (im Betragsfeld)
auf alle Reisenden auf.
Der Benutzer muss das bestätigen.</translation>
    </message>
    <message>
        <source>EditorLine for selected entries</source>
        <translation>Eingabezeile für den gewählten Eintrag</translation>
    </message>
    <message>
        <source>EditLine</source>
        <translation>Eingabezeile</translation>
    </message>
    <message>
        <source>TextLabel1</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>DateLabel</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>This label shows the date witch
is stored into the users account.</source>
        <translation>Dieses Feld zeigt das Datum, das
im Konto des Reisenden gebucht wird.</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>SelectButton</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>This button is used to open the calendar
for date input.</source>
        <translation>Dieser Knopf öffnet den Kalender
für die Eingabe des Datums.</translation>
    </message>
    <message>
        <source>select an item to edit</source>
        <translation>einen Eintrag zum Bearbeiten wählen</translation>
    </message>
    <message>
        <source>ListView with TipData</source>
        <translation>Liste mit den Daten</translation>
    </message>
    <message>
        <source>sel</source>
        <translation>Ausw.</translation>
    </message>
    <message>
        <source>user</source>
        <translation>Reisender</translation>
    </message>
    <message>
        <source>perc</source>
        <translation>Proz.</translation>
    </message>
    <message>
        <source>val</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>total</source>
        <translation>Summe</translation>
    </message>
</context>
<context>
    <name>WayfernApp</name>
    <message>
        <source>Could not read the last journey %1: %2</source>
        <translation>Die letzte Reise %1 war nicht lesbar: %2</translation>
    </message>
    <message>
        <source>New File</source>
        <translation>Neue Datei</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>Ctrl+N</source>
        <translation>Ctrl+N</translation>
    </message>
    <message>
        <source>Creates a new document</source>
        <translation>Legt ein neues Dokument an</translation>
    </message>
    <message>
        <source>New File

Creates a new document</source>
        <translation>Neue Datei

Legt ein neues Dokument an</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Opens an existing document</source>
        <translation>Öffnet ein vorhandenes Dokument</translation>
    </message>
    <message>
        <source>Open File

Opens an existing document</source>
        <translation>Datei öffnen

Öffnet ein vorhandenes Dokument</translation>
    </message>
    <message>
        <source>Save File</source>
        <translation>Datei speichern</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Ctrl+S</translation>
    </message>
    <message>
        <source>Saves the actual document</source>
        <translation>Speichert das aktuelle Dokument</translation>
    </message>
    <message>
        <source>Save File.

Saves the actual document</source>
        <translation>Datei speichern.

Speichert das aktuelle Dokument</translation>
    </message>
    <message>
        <source>Save File as</source>
        <translation>Datei speichern unter</translation>
    </message>
    <message>
        <source>save &amp;As</source>
        <translation>Speichern &amp;unter</translation>
    </message>
    <message>
        <source>Ctrl+A</source>
        <translation>Ctrl+A</translation>
    </message>
    <message>
        <source>Saves with new filename</source>
        <translation>Speichert unter neuem Dateinamen</translation>
    </message>
    <message>
        <source>Save File As.

Saves with new filename</source>
        <translation>Datei speichern unter.

Speichert unter neuem Dateinamen</translation>
    </message>
    <message>
        <source>Open Base Dialog</source>
        <translation>Grunddaten öffnen</translation>
    </message>
    <message>
        <source>&amp;Base</source>
        <translation>&amp;Basis</translation>
    </message>
    <message>
        <source>Ctrl+B</source>
        <translation>Ctrl+B</translation>
    </message>
    <message>
        <source>Opens the base dialog</source>
        <translation>Öffnet die Grunddaten</translation>
    </message>
    <message>
        <source>Opens the base dialog

used for basic settings</source>
        <translation>Öffnet die Grunddaten

für die Grundeinstellungen der Reise</translation>
    </message>
    <message>
        <source>Open Currency Dialog</source>
        <translation>Währungen öffnen</translation>
    </message>
    <message>
        <source>&amp;Currency</source>
        <translation>&amp;Währung</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>Opens the currency dialog</source>
        <translation>Öffnet die Währungsliste</translation>
    </message>
    <message>
        <source>Opens the currency dialog

used currency settings</source>
        <translation>Öffnet die Währungsliste

für die Einstellungen der Währungen</translation>
    </message>
    <message>
        <source>Open User Dialog</source>
        <translation>Reisende öffnen</translation>
    </message>
    <message>
        <source>&amp;User</source>
        <translation>&amp;Reisende</translation>
    </message>
    <message>
        <source>Ctrl+U</source>
        <translation>Ctrl+U</translation>
    </message>
    <message>
        <source>Opens the user dialog</source>
        <translation>Öffnet die Liste der Reisenden</translation>
    </message>
    <message>
        <source>Opens the user dialog

user input / data manipulation</source>
        <translation>Öffnet die Liste der Reisenden

Eingabe und Bearbeitung der Reisenden</translation>
    </message>
    <message>
        <source>Open online help</source>
        <translation>Hilfe öffnen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Ctrl+H</source>
        <translation>Ctrl+H</translation>
    </message>
    <message>
        <source>Opens the online help</source>
        <translation>Öffnet die Hilfe</translation>
    </message>
    <message>
        <source>Opens the online help browser
</source>
        <translation>Öffnet die Hilfe im Hilfebetrachter
</translation>
    </message>
    <message>
        <source>Toolbar</source>
        <translation>Werkzeugleiste</translation>
    </message>
    <message>
        <source>Tool&amp;bar</source>
        <translation>&amp;Werkzeugleiste</translation>
    </message>
    <message>
        <source>Enables/disables the toolbar</source>
        <translation>Blendet die Werkzeugleiste ein oder aus</translation>
    </message>
    <message>
        <source>Toolbar

Enables/disables the toolbar</source>
        <translation>Werkzeugleiste

Blendet die Werkzeugleiste ein oder aus</translation>
    </message>
    <message>
        <source>Statusbar</source>
        <translation>Statusleiste</translation>
    </message>
    <message>
        <source>&amp;Statusbar</source>
        <translation>&amp;Statusleiste</translation>
    </message>
    <message>
        <source>Enables/disables the statusbar</source>
        <translation>Blendet die Statusleiste ein oder aus</translation>
    </message>
    <message>
        <source>Statusbar

Enables/disables the statusbar</source>
        <translation>Statusleiste

Blendet die Statusleiste ein oder aus</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>Quits the application</source>
        <translation>Beendet das Programm</translation>
    </message>
    <message>
        <source>Settle up</source>
        <translation>Abrechnen</translation>
    </message>
    <message>
        <source>Shows who pays whom to settle the journey</source>
        <translation>Zeigt, wer wem zahlt, um die Reise abzurechnen</translation>
    </message>
    <message>
        <source>Settle up

Shows every traveller&apos;s balance and the kitty&apos;s,
and who pays whom, how much, with the fewest
transfers or all with one traveller. The plan
can be booked as deposits and pay-offs.</source>
        <translation>Abrechnen

Zeigt den Saldo jedes Reisenden und der Kasse
und wer wem wie viel zahlt, mit den wenigsten
Überweisungen oder alle mit einem Reisenden.
Der Plan lässt sich als Ein- und Auszahlungen buchen.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Ready.</source>
        <translation>Bereit.</translation>
    </message>
    <message>
        <source>Quit...</source>
        <translation>Beenden...</translation>
    </message>
    <message>
        <source>Do your really want to quit?</source>
        <translation>Wollen Sie das Programm wirklich beenden?</translation>
    </message>
    <message>
        <source>New file ... </source>
        <translation>Neue Datei ... </translation>
    </message>
    <message>
        <source>Creating new file...</source>
        <translation>Neue Datei wird angelegt...</translation>
    </message>
    <message>
        <source>Could not read the template %1: %2</source>
        <translation>Die Vorlage %1 war nicht lesbar: %2</translation>
    </message>
    <message>
        <source>Loaded document: new file</source>
        <translation>Dokument geladen: neue Datei</translation>
    </message>
    <message>
        <source>Open file ... </source>
        <translation>Datei öffnen ... </translation>
    </message>
    <message>
        <source>Opening file...</source>
        <translation>Datei wird geöffnet...</translation>
    </message>
    <message>
        <source>Opening aborted</source>
        <translation>Öffnen abgebrochen</translation>
    </message>
    <message>
        <source>Opening failed</source>
        <translation>Öffnen fehlgeschlagen</translation>
    </message>
    <message>
        <source>Could not open %1

%2</source>
        <translation>%1 konnte nicht geöffnet werden.

%2</translation>
    </message>
    <message>
        <source>Loaded document: </source>
        <translation>Dokument geladen: </translation>
    </message>
    <message>
        <source>Saving file...</source>
        <translation>Datei wird gespeichert...</translation>
    </message>
    <message>
        <source>Saving failed</source>
        <translation>Speichern fehlgeschlagen</translation>
    </message>
    <message>
        <source>Could not save %1

%2</source>
        <translation>%1 konnte nicht gespeichert werden.

%2</translation>
    </message>
    <message>
        <source>Saving file under new filename...</source>
        <translation>Datei wird unter neuem Namen gespeichert...</translation>
    </message>
    <message>
        <source>Saving aborted</source>
        <translation>Speichern abgebrochen</translation>
    </message>
    <message>
        <source>Wayfern</source>
        <translation>Wayfern</translation>
    </message>
    <message>
        <source>Exiting application...</source>
        <translation>Programm wird beendet...</translation>
    </message>
    <message>
        <source>Quit ... </source>
        <translation>Beenden ... </translation>
    </message>
    <message>
        <source>Cutting selection...</source>
        <translation>Auswahl wird ausgeschnitten...</translation>
    </message>
    <message>
        <source>Copying selection to clipboard...</source>
        <translation>Auswahl wird in die Zwischenablage kopiert...</translation>
    </message>
    <message>
        <source>Inserting clipboard contents...</source>
        <translation>Inhalt der Zwischenablage wird eingefügt...</translation>
    </message>
    <message>
        <source>Toggle toolbar...</source>
        <translation>Werkzeugleiste umschalten...</translation>
    </message>
    <message>
        <source>Toggle statusbar...</source>
        <translation>Statusleiste umschalten...</translation>
    </message>
    <message>
        <source>new file</source>
        <translation>neue Datei</translation>
    </message>
    <message>
        <source>Report...</source>
        <translation>Bericht...</translation>
    </message>
    <message>
        <source>Journey report</source>
        <translation>Reisebericht</translation>
    </message>
    <message>
        <source>Writes the journey report as PDF and HTML</source>
        <translation>Schreibt den Reisebericht als PDF und HTML</translation>
    </message>
    <message>
        <source>Journey report

Writes the journey&apos;s dates, totals, spending by
category and by traveller, the balances, who pays
whom and every cost into a PDF file, and the same
as an HTML page beside it.</source>
        <translation>Reisebericht

Schreibt die Daten der Reise, die Summen, die Ausgaben
nach Art und nach Reisendem, die Salden, wer wem
zahlt und alle Kosten in eine PDF-Datei und dasselbe
als HTML-Seite daneben.</translation>
    </message>
    <message>
        <source>Writing the journey report...</source>
        <translation>Der Reisebericht wird geschrieben...</translation>
    </message>
    <message>
        <source>Report aborted</source>
        <translation>Bericht abgebrochen</translation>
    </message>
    <message>
        <source>Writing the report failed</source>
        <translation>Der Bericht konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Report written: %1 and %2</source>
        <translation>Bericht geschrieben: %1 und %2</translation>
    </message>
    <message>
        <source>Ctrl+O</source>
        <translation>Ctrl+O</translation>
    </message>
    <message>
        <source>Export CSV...</source>
        <translation>CSV exportieren...</translation>
    </message>
    <message>
        <source>Export CSV</source>
        <translation>CSV exportieren</translation>
    </message>
    <message>
        <source>Writes the costs and the accounts as CSV files</source>
        <translation>Schreibt die Kosten und die Konten als CSV-Dateien</translation>
    </message>
    <message>
        <source>Export CSV

Writes every cost into a CSV file for a
spreadsheet, and every account line into a
second file beside it, NAME-accounts.csv.</source>
        <translation>CSV exportieren

Schreibt alle Kosten in eine CSV-Datei für eine
Tabellenkalkulation und alle Kontobuchungen in
eine zweite Datei daneben, NAME-accounts.csv.</translation>
    </message>
    <message>
        <source>Recovery</source>
        <translation>Wiederherstellung</translation>
    </message>
    <message>
        <source>Wayfern was not ended properly.
Restore the unsaved changes of %1 from %2?</source>
        <translation>Wayfern wurde nicht ordentlich beendet.
Die nicht gespeicherten Änderungen an %1 vom %2 wiederherstellen?</translation>
    </message>
    <message>
        <source>Restored the unsaved changes of %1.</source>
        <translation>Die nicht gespeicherten Änderungen an %1 wurden wiederhergestellt.</translation>
    </message>
    <message>
        <source>The unsaved changes were kept in %1.</source>
        <translation>Die nicht gespeicherten Änderungen wurden in %1 aufbewahrt.</translation>
    </message>
    <message>
        <source>The journey is open in another Wayfern window: process %1 on %2.</source>
        <translation>Die Reise ist in einem anderen Wayfern-Fenster geöffnet: Prozess %1 auf %2.</translation>
    </message>
    <message>
        <source>Writing the CSV files...</source>
        <translation>Die CSV-Dateien werden geschrieben...</translation>
    </message>
    <message>
        <source>Export aborted</source>
        <translation>Export abgebrochen</translation>
    </message>
    <message>
        <source>Writing the CSV files failed</source>
        <translation>Schreiben der CSV-Dateien fehlgeschlagen</translation>
    </message>
    <message>
        <source>CSV written: %1 and %2</source>
        <translation>CSV geschrieben: %1 und %2</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Ctrl+Z</source>
        <translation>Ctrl+Z</translation>
    </message>
    <message>
        <source>Takes the last change back</source>
        <translation>Nimmt die letzte Änderung zurück</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Ctrl+Shift+Z</translation>
    </message>
    <message>
        <source>Ctrl+Y</source>
        <translation>Ctrl+Y</translation>
    </message>
    <message>
        <source>Makes the change taken back again</source>
        <translation>Stellt die zurückgenommene Änderung wieder her</translation>
    </message>
    <message>
        <source>Undo: %1</source>
        <translation>Rückgängig: %1</translation>
    </message>
    <message>
        <source>Redo: %1</source>
        <translation>Wiederherstellen: %1</translation>
    </message>
    <message>
        <source>The shares of %1 costs were divided anew at their new base values.</source>
        <translation>Die Anteile von %1 Kosten wurden nach ihren neuen Basiswerten neu aufgeteilt.</translation>
    </message>
</context>
<context>
    <name>WayfernView</name>
    <message>
        <source>common</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>journey</source>
        <translation>Reise</translation>
    </message>
    <message>
        <source>base currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>costs</source>
        <translation>Kosten</translation>
    </message>
    <message>
        <source>total</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>perday</source>
        <translation>pro Tag</translation>
    </message>
    <message>
        <source>user account</source>
        <translation>Konten</translation>
    </message>
    <message>
        <source>costs by category</source>
        <translation>Nach Art</translation>
    </message>
    <message>
        <source>It is not a journey: it has no [Header] section.</source>
        <translation>Die Datei ist keine Reise: ihr fehlt der Abschnitt [Header].</translation>
    </message>
    <message>
        <source>It is cut off or damaged: the section [%1] is missing.</source>
        <translation>Die Datei ist abgeschnitten oder beschädigt: der Abschnitt [%1] fehlt.</translation>
    </message>
    <message>
        <source>Delete entry</source>
        <translation>Eintrag löschen</translation>
    </message>
    <message>
        <source>or </source>
        <translation>oder </translation>
    </message>
    <message>
        <source>confirm with yes !</source>
        <translation>mit Ja bestätigen!</translation>
    </message>
    <message>
        <source>Delete item</source>
        <translation>Eintrag löschen</translation>
    </message>
    <message>
        <source>base settings</source>
        <translation>Grunddaten</translation>
    </message>
    <message>
        <source>currencies and rates</source>
        <translation>Währungen und Kurse</translation>
    </message>
    <message>
        <source>book the settle-up plan</source>
        <translation>Ausgleichsplan buchen</translation>
    </message>
    <message>
        <source>new cost %1</source>
        <translation>neuer Kostenpunkt %1</translation>
    </message>
    <message>
        <source>change cost %1</source>
        <translation>Kostenpunkt ändern %1</translation>
    </message>
    <message>
        <source>delete cost %1</source>
        <translation>Kostenpunkt löschen %1</translation>
    </message>
    <message>
        <source>paste cost %1</source>
        <translation>Kostenpunkt einfügen %1</translation>
    </message>
    <message>
        <source>new tip %1</source>
        <translation>neuer Tipp %1</translation>
    </message>
    <message>
        <source>change tip %1</source>
        <translation>Tipp ändern %1</translation>
    </message>
    <message>
        <source>delete tip %1</source>
        <translation>Tipp löschen %1</translation>
    </message>
    <message>
        <source>paste tip %1</source>
        <translation>Tipp einfügen %1</translation>
    </message>
</context>
<context>
    <name>baseEdit</name>
    <message>
        <source>journey title</source>
        <translation>Reisetitel</translation>
    </message>
    <message>
        <source>base currency</source>
        <translation>Basiswährung</translation>
    </message>
    <message>
        <source>distance type</source>
        <translation>Entfernung in</translation>
    </message>
    <message>
        <source>user flag</source>
        <translation>Konten führen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
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
        <source>You have modified the base currency!
Do you want to use the new one ?</source>
        <translation>Sie haben die Basiswährung geändert!
Wollen Sie die neue verwenden?</translation>
    </message>
</context>
<context>
    <name>costsEdit</name>
    <message>
        <source>date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>short</source>
        <translation>Kürzel</translation>
    </message>
    <message>
        <source>currency type</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>foreign value</source>
        <translation>Fremdbetrag</translation>
    </message>
    <message>
        <source>base value</source>
        <translation>Basisbetrag</translation>
    </message>
    <message>
        <source>comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>exch. rate</source>
        <translation>Kurs</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>currEdit</name>
    <message>
        <source>short name</source>
        <translation>Kürzel</translation>
    </message>
    <message>
        <source>factor</source>
        <translation>Faktor</translation>
    </message>
    <message>
        <source>full name</source>
        <translation>Voller Name</translation>
    </message>
    <message>
        <source>type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>currListEdit</name>
    <message>
        <source>base currency</source>
        <translation>Basiswährung</translation>
    </message>
    <message>
        <source>Delete currency</source>
        <translation>Währung löschen</translation>
    </message>
    <message>
        <source>confirm with yes !</source>
        <translation>mit Ja bestätigen!</translation>
    </message>
    <message>
        <source>Delete base currency</source>
        <translation>Basiswährung löschen</translation>
    </message>
    <message>
        <source>is not possible !</source>
        <translation>ist nicht möglich!</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>You have modified the data!
Do you want to save the changes ?</source>
        <translation>Sie haben die Daten geändert!
Wollen Sie die Änderungen speichern?</translation>
    </message>
    <message>
        <source>Delete item</source>
        <translation>Eintrag löschen</translation>
    </message>
    <message>
        <source>exchange rate list</source>
        <translation>Wechselkursliste</translation>
    </message>
</context>
<context>
    <name>currSync</name>
    <message>
        <source>request for</source>
        <translation>Anfrage für</translation>
    </message>
    <message>
        <source>please wait</source>
        <translation>bitte warten</translation>
    </message>
    <message>
        <source>transfer success ...</source>
        <translation>Übertragung erfolgreich ...</translation>
    </message>
    <message>
        <source>did not get data ...</source>
        <translation>keine Daten erhalten ...</translation>
    </message>
    <message>
        <source>no connection to the server %1</source>
        <translation>keine Verbindung zum Server %1</translation>
    </message>
    <message>
        <source>the server refused the request %1</source>
        <translation>der Server hat die Anfrage %1 abgelehnt</translation>
    </message>
    <message>
        <source>the server sent an empty answer to %1</source>
        <translation>der Server hat auf %1 leer geantwortet</translation>
    </message>
    <message>
        <source>wget did not end normally</source>
        <translation>wget wurde nicht normal beendet</translation>
    </message>
    <message>
        <source>wget ended with status %1</source>
        <translation>wget endete mit Status %1</translation>
    </message>
    <message>
        <source>wget could not be started</source>
        <translation>wget konnte nicht gestartet werden</translation>
    </message>
    <message>
        <source>no answer within %1 seconds</source>
        <translation>keine Antwort innerhalb von %1 Sekunden</translation>
    </message>
    <message>
        <source>no rate for %1 in the answer</source>
        <translation>kein Kurs für %1 in der Antwort</translation>
    </message>
    <message>
        <source>no list of currencies in the answer from %1</source>
        <translation>keine Währungsliste in der Antwort von %1</translation>
    </message>
</context>
<context>
    <name>settleEdit</name>
    <message>
        <source>kitty</source>
        <translation>Kasse</translation>
    </message>
    <message>
        <source>Left unbooked by the division of shared costs: %1 %2</source>
        <translation>Bei der Teilung gemeinsamer Kosten nicht gebucht: %1 %2</translation>
    </message>
    <message>
        <source>%1 pays %2 %3 %4</source>
        <translation>%1 zahlt %2 %3 %4</translation>
    </message>
    <message>
        <source>Nobody owes anybody anything.</source>
        <translation>Niemand schuldet jemandem etwas.</translation>
    </message>
    <message>
        <source>Book %1 transfers as deposits and pay-offs dated %2 ?

Afterwards every balance is 0.00.</source>
        <translation>%1 Überweisungen als Ein- und Auszahlungen mit Datum %2 buchen?

Danach ist jeder Saldo 0.00.</translation>
    </message>
    <message>
        <source>Book the plan</source>
        <translation>Plan buchen</translation>
    </message>
    <message>
        <source>Left unbooked because the shares of these costs do not add up to them: %1 %2</source>
        <translation>Nicht gebucht, weil die Anteile dieser Kosten nicht ihren Betrag ergeben: %1 %2</translation>
    </message>
    <message>
        <source>%1 %2 %3, shares %4</source>
        <translation>%1 %2 %3, Anteile %4</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Whether the plan is proven to need the fewest transfers.</source>
        <translation>Ob bewiesen ist, dass der Plan die wenigsten Überweisungen braucht.</translation>
    </message>
    <message>
        <source>These are the fewest transfers possible.</source>
        <translation>Das sind die wenigsten möglichen Überweisungen.</translation>
    </message>
    <message>
        <source>The plan may not be the fewest transfers possible: too many travellers owe or are owed to prove it.</source>
        <translation>Der Plan braucht vielleicht nicht die wenigsten Überweisungen: zu viele Reisende schulden oder bekommen Geld, um es zu beweisen.</translation>
    </message>
</context>
<context>
    <name>syncListEdit</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>You have modified the data!
Do you want to save the changes ?</source>
        <translation>Sie haben die Daten geändert!
Wollen Sie die Änderungen speichern?</translation>
    </message>
</context>
<context>
    <name>tipEdit</name>
    <message>
        <source>common</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>street</source>
        <translation>Straße</translation>
    </message>
    <message>
        <source>pcode</source>
        <translation>PLZ</translation>
    </message>
    <message>
        <source>town</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>tiptype</source>
        <translation>Tippart</translation>
    </message>
    <message>
        <source>short tiptype</source>
        <translation>Kurzart</translation>
    </message>
    <message>
        <source>comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>phone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>fax</source>
        <translation>Fax</translation>
    </message>
    <message>
        <source>email</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>www</source>
        <translation>Web</translation>
    </message>
    <message>
        <source>quality</source>
        <translation>Qualität</translation>
    </message>
    <message>
        <source>custom</source>
        <translation>Eigene</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>change tiptype</source>
        <translation>Tippart ändern</translation>
    </message>
    <message>
        <source>You want to change the tiptype!
you may loose custom data !</source>
        <translation>Sie wollen die Tippart ändern!
Eigene Felder können verloren gehen!</translation>
    </message>
</context>
<context>
    <name>userCashEdit</name>
    <message>
        <source>deposit</source>
        <translation>Einzahlung</translation>
    </message>
    <message>
        <source>pay off</source>
        <translation>Auszahlung</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>userEdit</name>
    <message>
        <source>common</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>phone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>bank</source>
        <translation>Bank</translation>
    </message>
    <message>
        <source>date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>short</source>
        <translation>Kürzel</translation>
    </message>
    <message>
        <source>first</source>
        <translation>Vorname</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>street</source>
        <translation>Straße</translation>
    </message>
    <message>
        <source>pcode</source>
        <translation>PLZ</translation>
    </message>
    <message>
        <source>town</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>fax</source>
        <translation>Fax</translation>
    </message>
    <message>
        <source>email</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>www</source>
        <translation>Web</translation>
    </message>
    <message>
        <source>bcode</source>
        <translation>BLZ</translation>
    </message>
    <message>
        <source>account</source>
        <translation>Konto</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>userKtoEdit</name>
    <message>
        <source>account : %1</source>
        <translation>Konto : %1</translation>
    </message>
</context>
<context>
    <name>userListEdit</name>
    <message>
        <source>Delete user entry</source>
        <translation>Reisenden löschen</translation>
    </message>
    <message>
        <source>confirm with yes !</source>
        <translation>mit Ja bestätigen!</translation>
    </message>
    <message>
        <source>Delete item</source>
        <translation>Eintrag löschen</translation>
    </message>
    <message>
        <source>Balance: %1</source>
        <translation>Kontostand: %1</translation>
    </message>
    <message>
        <source>Deposits leaving with the traveller: %1 (%2)</source>
        <translation>Einzahlungen, die mit dem Reisenden gehen: %1 (%2)</translation>
    </message>
    <message>
        <source>Pay-offs leaving with the traveller: %1 (%2)</source>
        <translation>Auszahlungen, die mit dem Reisenden gehen: %1 (%2)</translation>
    </message>
    <message>
        <source>Shared costs divided again among the others: %1</source>
        <translation>Geteilte Kosten, neu auf die anderen verteilt: %1</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>new traveller %1</source>
        <translation>neuer Reisender %1</translation>
    </message>
    <message>
        <source>change traveller %1</source>
        <translation>Reisenden ändern %1</translation>
    </message>
    <message>
        <source>delete traveller %1</source>
        <translation>Reisenden löschen %1</translation>
    </message>
    <message>
        <source>deposit of %1</source>
        <translation>Einzahlung von %1</translation>
    </message>
    <message>
        <source>pay-off of %1</source>
        <translation>Auszahlung an %1</translation>
    </message>
</context>
<context>
    <name>userPayEdit</name>
    <message>
        <source>Share costs</source>
        <translation>Kosten teilen</translation>
    </message>
    <message>
        <source>Would you like to share the costs 
amoung all users ?</source>
        <translation>Möchten Sie die Kosten 
auf alle Reisenden aufteilen?</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>share of %1</source>
        <translation>Anteil von %1</translation>
    </message>
</context>
</TS>
