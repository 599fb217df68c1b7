<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_GB">
<context>
    <name>ApprovalDialog</name>
    <message>
        <source>New assistant</source>
        <translation>Neuer Assistent</translation>
    </message>
    <message>
        <source>Allow “%1” to work with Quillary?</source>
        <translation>Darf „%1“ mit Quillary arbeiten?</translation>
    </message>
    <message>
        <source>What it may do is set under Settings ▸ AI Assistants. It can never send anything by itself, and you can take the permission back there at any time.</source>
        <translation>Was er darf, steht unter Einstellungen ▸ KI-Assistenten. Er kann nie von sich aus etwas verschicken, und die Erlaubnis lässt sich dort jederzeit zurücknehmen.</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Erlauben</translation>
    </message>
    <message>
        <source>Don&apos;t Allow</source>
        <translation>Nicht erlauben</translation>
    </message>
</context>
<context>
    <name>Core</name>
    <message>
        <source>Draft</source>
        <translation>Entwurf</translation>
    </message>
    <message>
        <source>Sent</source>
        <translation>Verschickt</translation>
    </message>
    <message>
        <source>Partly Paid</source>
        <translation>Teilbezahlt</translation>
    </message>
    <message>
        <source>Overdue</source>
        <translation>Überfällig</translation>
    </message>
    <message>
        <source>Paid</source>
        <translation>Bezahlt</translation>
    </message>
    <message>
        <source>Refunded</source>
        <translation>Erstattet</translation>
    </message>
    <message>
        <source>Accepted</source>
        <translation>Angenommen</translation>
    </message>
    <message>
        <source>Declined</source>
        <translation>Abgelehnt</translation>
    </message>
    <message>
        <source>Expired</source>
        <translation>Abgelaufen</translation>
    </message>
    <message>
        <source>Mark as Sent</source>
        <translation>Als verschickt markieren</translation>
    </message>
    <message>
        <source>Mark as Paid</source>
        <translation>Als bezahlt markieren</translation>
    </message>
    <message>
        <source>Mark as Refunded</source>
        <translation>Als erstattet markieren</translation>
    </message>
    <message>
        <source>Mark as Unpaid</source>
        <translation>Als unbezahlt markieren</translation>
    </message>
    <message>
        <source>Mark as Not Refunded</source>
        <translation>Als nicht erstattet markieren</translation>
    </message>
    <message>
        <source>Mark as Accepted</source>
        <translation>Als angenommen markieren</translation>
    </message>
    <message>
        <source>Mark as Declined</source>
        <translation>Als abgelehnt markieren</translation>
    </message>
    <message>
        <source>Back to Draft</source>
        <translation>Zurück zum Entwurf</translation>
    </message>
    <message>
        <source>Reopen</source>
        <translation>Wieder öffnen</translation>
    </message>
    <message>
        <source>Invoice from Quote</source>
        <translation>Rechnung aus Angebot</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Payment</source>
        <translation>Zahlung</translation>
    </message>
    <message>
        <source>Delete Payment</source>
        <translation>Zahlung löschen</translation>
    </message>
    <message>
        <source>Delete Draft</source>
        <translation>Entwurf löschen</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Schlagwörter</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Make Recurring</source>
        <translation>Wiederkehrend machen</translation>
    </message>
    <message>
        <source>Change Recurring Invoice</source>
        <translation>Wiederkehrende Rechnung ändern</translation>
    </message>
    <message>
        <source>Recurring invoice</source>
        <translation>Wiederkehrende Rechnung</translation>
    </message>
    <message>
        <source>Import clients</source>
        <translation>Kunden importieren</translation>
    </message>
    <message>
        <source>Invoice</source>
        <translation>Rechnung</translation>
    </message>
    <message>
        <source>Quote</source>
        <translation>Angebot</translation>
    </message>
    <message>
        <source>Credit Note</source>
        <translation>Gutschrift</translation>
    </message>
    <message>
        <source>Recurring Invoice</source>
        <translation>Wiederkehrende Rechnung</translation>
    </message>
    <message>
        <source>without a number</source>
        <translation>ohne Nummer</translation>
    </message>
    <message>
        <source>Bank transfer</source>
        <translation>Überweisung</translation>
    </message>
    <message>
        <source>Cash</source>
        <translation>Bar</translation>
    </message>
    <message>
        <source>Card</source>
        <translation>Karte</translation>
    </message>
    <message>
        <source>PayPal</source>
        <translation>PayPal</translation>
    </message>
    <message>
        <source>Cheque</source>
        <translation>Scheck</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Sonstige</translation>
    </message>
    <message>
        <source>Payment Reminder</source>
        <translation>Zahlungserinnerung</translation>
    </message>
    <message>
        <source>Second Reminder</source>
        <translation>Mahnung</translation>
    </message>
    <message>
        <source>Final Notice</source>
        <translation>Letzte Mahnung</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>Ended</source>
        <translation>Beendet</translation>
    </message>
    <message>
        <source>A line for each entry</source>
        <translation>Eine Position je Eintrag</translation>
    </message>
    <message>
        <source>A line for each project</source>
        <translation>Eine Position je Projekt</translation>
    </message>
    <message>
        <source>One line</source>
        <translation>Eine Position</translation>
    </message>
    <message>
        <source>Look only</source>
        <translation>Nur ansehen</translation>
    </message>
    <message>
        <source>Make invoices and quotes</source>
        <translation>Rechnungen und Angebote erstellen</translation>
    </message>
    <message>
        <source>Everything</source>
        <translation>Alles</translation>
    </message>
    <message>
        <source>Find clients, invoices and figures. Change nothing.</source>
        <translation>Kunden, Rechnungen und Zahlen finden. Nichts ändern.</translation>
    </message>
    <message>
        <source>Also make and change drafts, preview and export them, and prepare emails you send yourself.</source>
        <translation>Außerdem Entwürfe anlegen und ändern, sie ansehen und ausgeben und E-Mails zum Selbstverschicken vorbereiten.</translation>
    </message>
    <message>
        <source>Also mark invoices sent, record payments and fill in your business details.</source>
        <translation>Außerdem Rechnungen als verschickt markieren, Zahlungen erfassen und die eigenen Angaben ausfüllen.</translation>
    </message>
    <message>
        <source>By invoice date</source>
        <translation>Nach Rechnungsdatum</translation>
    </message>
    <message>
        <source>By payment date</source>
        <translation>Nach Zahlungsdatum</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>Steuer</translation>
    </message>
    <message>
        <source>VAT</source>
        <translation>USt.</translation>
    </message>
    <message>
        <source>Sales tax</source>
        <translation>Verkaufssteuer</translation>
    </message>
    <message>
        <source>Rate %</source>
        <translation>Satz %</translation>
    </message>
    <message>
        <source>Net</source>
        <translation>Netto</translation>
    </message>
    <message>
        <source>Gross</source>
        <translation>Brutto</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Gesamt</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Paid on</source>
        <translation>Bezahlt am</translation>
    </message>
    <message>
        <source>Due date</source>
        <translation>Fällig am</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>Kunde</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Invoices</source>
        <translation>Rechnungen</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Belege</translation>
    </message>
    <message>
        <source>Open now</source>
        <translation>Jetzt offen</translation>
    </message>
    <message>
        <source>Not due yet</source>
        <translation>Noch nicht fällig</translation>
    </message>
    <message>
        <source>1–30 days</source>
        <translation>1–30 Tage</translation>
    </message>
    <message>
        <source>31–60 days</source>
        <translation>31–60 Tage</translation>
    </message>
    <message>
        <source>61–90 days</source>
        <translation>61–90 Tage</translation>
    </message>
    <message>
        <source>Over 90 days</source>
        <translation>Über 90 Tage</translation>
    </message>
    <message>
        <source>Classic</source>
        <translation>Klassisch</translation>
    </message>
    <message>
        <source>Modern</source>
        <translation>Modern</translation>
    </message>
    <message>
        <source>Minimal</source>
        <translation>Schlicht</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>Kräftig</translation>
    </message>
    <message>
        <source>Compact</source>
        <translation>Kompakt</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Serif</source>
        <translation>Serifen</translation>
    </message>
    <message>
        <source>Rounded</source>
        <translation>Rund</translation>
    </message>
    <message>
        <source>Mono</source>
        <translation>Schreibmaschine</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Small</source>
        <translation>Klein</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Large</source>
        <translation>Groß</translation>
    </message>
    <message>
        <source>invoice</source>
        <translation>Rechnung</translation>
    </message>
    <message>
        <source>quote</source>
        <translation>Angebot</translation>
    </message>
    <message>
        <source>credit note</source>
        <translation>Gutschrift</translation>
    </message>
    <message>
        <source>recurring invoice</source>
        <translation>Wiederkehrende Rechnung</translation>
    </message>
    <message>
        <source>The client</source>
        <translation>Der Kunde</translation>
    </message>
    <message>
        <source>number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>email address</source>
        <translation>E-Mail-Adresse</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>No %1</source>
        <translation>Keine %1</translation>
    </message>
    <message>
        <source>Recurring Invoice %1</source>
        <translation>Wiederkehrende Rechnung %1</translation>
    </message>
    <message>
        <source>Invoice %1</source>
        <translation>Rechnung %1</translation>
    </message>
    <message>
        <source>Quote %1</source>
        <translation>Angebot %1</translation>
    </message>
    <message>
        <source>Credit Note %1</source>
        <translation>Gutschrift %1</translation>
    </message>
    <message>
        <source>Your business name is missing.</source>
        <translation>Der Name des Unternehmens fehlt.</translation>
    </message>
    <message>
        <source>Your address is missing; invoices must show it.</source>
        <translation>Die eigene Anschrift fehlt; sie muss auf Rechnungen stehen.</translation>
    </message>
    <message>
        <source>Invoices in %1 must show your tax number or VAT ID.</source>
        <translation>In %1 muss auf Rechnungen die Steuernummer oder USt-IdNr. stehen.</translation>
    </message>
    <message>
        <source>Your VAT ID is missing; VAT invoices must show it.</source>
        <translation>Die eigene USt-IdNr. fehlt; sie muss auf Rechnungen mit Umsatzsteuer stehen.</translation>
    </message>
    <message>
        <source>The %1 has no date.</source>
        <translation>%1: Das Datum fehlt.</translation>
    </message>
    <message>
        <source>The %1 has no number.</source>
        <translation>%1: Die Nummer fehlt.</translation>
    </message>
    <message>
        <source>The quote&apos;s last day of validity has passed.</source>
        <translation>Der letzte Gültigkeitstag des Angebots ist vorbei.</translation>
    </message>
    <message>
        <source>The %1&apos;s total is negative.</source>
        <translation>%1: Die Summe ist negativ.</translation>
    </message>
    <message>
        <source>Which invoice does the credit note correct?</source>
        <translation>Welche Rechnung berichtigt die Gutschrift?</translation>
    </message>
    <message>
        <source>The client has no name.</source>
        <translation>Der Kunde hat keinen Namen.</translation>
    </message>
    <message>
        <source>%1&apos;s address is missing; invoices must show it.</source>
        <translation>%1: Die Anschrift fehlt; sie muss auf Rechnungen stehen.</translation>
    </message>
    <message>
        <source>Who is it for? The %1 needs a client.</source>
        <translation>%1: Für wen? Es fehlt noch der Kunde.</translation>
    </message>
    <message>
        <source>When was the work done (or delivered)?</source>
        <translation>Wann wurde geleistet oder geliefert?</translation>
    </message>
    <message>
        <source>%1 is usually billed in %2, and this %3 is in %4. Which should it be?</source>
        <translation>%1 wird sonst in %2 abgerechnet, hier steht %4 (%3). Was soll es sein?</translation>
    </message>
    <message>
        <source>What should the %1 list, and at what price?</source>
        <translation>%1: Welche Positionen, und zu welchem Preis?</translation>
    </message>
    <message>
        <source>Line %1 (“%2”) has the quantity 0, so it bills nothing.</source>
        <translation>Position %1 („%2“) hat die Menge 0 und berechnet also nichts.</translation>
    </message>
    <message>
        <source>What should line %1 be called, and what does it cost?</source>
        <translation>Wie soll Position %1 heißen, und was kostet sie?</translation>
    </message>
    <message>
        <source>What should line %1 be called?</source>
        <translation>Wie soll Position %1 heißen?</translation>
    </message>
    <message>
        <source>What&apos;s the price for “%1” (line %2)?</source>
        <translation>Was kostet „%1“ (Position %2)?</translation>
    </message>
    <message>
        <source>The %1 is taxed, but line %2 (“%3”) bears no %4.</source>
        <translation>%1 mit Steuer, aber Position %2 („%3“) ist ohne %4.</translation>
    </message>
    <message>
        <source>The %1 is taxed, but lines %2 bear no %3.</source>
        <translation>%1 mit Steuer, aber die Positionen %2 sind ohne %3.</translation>
    </message>
    <message>
        <source>Line %1 (“%2”) bears no %3. Which rate applies?</source>
        <translation>Position %1 („%2“) ist ohne %3. Welcher Satz gilt?</translation>
    </message>
    <message>
        <source>Lines %1 bear no %2. Which rate applies?</source>
        <translation>Die Positionen %1 sind ohne %2. Welcher Satz gilt?</translation>
    </message>
    <message>
        <source>The %1 is tax-exempt but doesn&apos;t say why.</source>
        <translation>%1 ohne Steuer: Der Grund der Befreiung fehlt.</translation>
    </message>
    <message>
        <source>Reverse charge needs a client in another EU country; %1 is in %2.</source>
        <translation>Reverse-Charge setzt einen Kunden in einem anderen EU-Land voraus; %1 ist in %2.</translation>
    </message>
    <message>
        <source>Reverse charge needs %1&apos;s VAT ID of another EU country.</source>
        <translation>Reverse-Charge: Es fehlt die USt-IdNr. von %1 aus einem anderen EU-Land.</translation>
    </message>
    <message>
        <source>Reverse charge needs %1&apos;s VAT ID.</source>
        <translation>Reverse-Charge: Es fehlt die USt-IdNr. von %1.</translation>
    </message>
    <message>
        <source>Reverse charge needs your VAT ID.</source>
        <translation>Reverse-Charge: Es fehlt die eigene USt-IdNr.</translation>
    </message>
    <message>
        <source>The note says that the client is outside the EU; %1 is in %2.</source>
        <translation>Laut Hinweis ist der Kunde außerhalb der EU; %1 ist in %2.</translation>
    </message>
    <message>
        <source>%1 is a business in %2 with a VAT ID. Use reverse charge (no VAT, with the note)?</source>
        <translation>%1 ist ein Unternehmen in %2 mit USt-IdNr. Reverse-Charge anwenden (ohne Umsatzsteuer, mit Hinweis)?</translation>
    </message>
    <message>
        <source>%1 is in %2. If they&apos;re a VAT-registered business, what&apos;s their VAT ID? (Then reverse charge usually applies.)</source>
        <translation>%1 ist in %2. Falls es ein umsatzsteuerpflichtiges Unternehmen ist: Wie lautet die USt-IdNr.? (Dann gilt meist Reverse-Charge.)</translation>
    </message>
    <message>
        <source>%1 is a business outside the EU (%2). Invoice without %3, with the note?</source>
        <translation>%1 ist ein Unternehmen außerhalb der EU (%2). Ohne %3 abrechnen, mit Hinweis?</translation>
    </message>
    <message>
        <source>Has the same %1 as “%2” in row %3.</source>
        <translation>%1 wie bei „%2“ in Zeile %3.</translation>
    </message>
    <message>
        <source>Has the same %1 as “%2” in the library.</source>
        <translation>%1 wie bei „%2“ in der Bibliothek.</translation>
    </message>
    <message>
        <source>Row %1 has the same name and another number.</source>
        <translation>Zeile %1 hat denselben Namen und eine andere Nummer.</translation>
    </message>
    <message>
        <source>Tax report by invoice date</source>
        <translation>Steuerbericht nach Rechnungsdatum</translation>
    </message>
    <message>
        <source>Tax report by payment date</source>
        <translation>Steuerbericht nach Zahlungsdatum</translation>
    </message>
    <message>
        <source>Documents of the tax report by invoice date</source>
        <translation>Belege des Steuerberichts nach Rechnungsdatum</translation>
    </message>
    <message>
        <source>Documents of the tax report by payment date</source>
        <translation>Belege des Steuerberichts nach Zahlungsdatum</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>Kunden</translation>
    </message>
    <message>
        <source>Invoices and credit notes</source>
        <translation>Rechnungen und Gutschriften</translation>
    </message>
    <message>
        <source>all dates</source>
        <translation>alle Daten</translation>
    </message>
    <message>
        <source>Open invoices on %1</source>
        <translation>Offene Rechnungen am %1</translation>
    </message>
    <message>
        <source>until %1</source>
        <translation>bis %1</translation>
    </message>
    <message>
        <source>since %1</source>
        <translation>seit %1</translation>
    </message>
    <message>
        <source>Who you&apos;re writing to</source>
        <translation>An wen die E-Mail geht</translation>
    </message>
    <message>
        <source>The client&apos;s name</source>
        <translation>Name des Kunden</translation>
    </message>
    <message>
        <source>Invoice, Quote or Credit Note, in the document&apos;s language</source>
        <translation>Rechnung, Angebot oder Gutschrift, in der Sprache des Belegs</translation>
    </message>
    <message>
        <source>The document&apos;s number</source>
        <translation>Nummer des Belegs</translation>
    </message>
    <message>
        <source>The document&apos;s title</source>
        <translation>Titel des Belegs</translation>
    </message>
    <message>
        <source>The total, e.g. €1,190.00</source>
        <translation>Gesamtbetrag, zum Beispiel 1.190,00 €</translation>
    </message>
    <message>
        <source>The document&apos;s date</source>
        <translation>Datum des Belegs</translation>
    </message>
    <message>
        <source>When an invoice is due</source>
        <translation>Fälligkeit einer Rechnung</translation>
    </message>
    <message>
        <source>Until when a quote is valid</source>
        <translation>Gültigkeit eines Angebots</translation>
    </message>
    <message>
        <source>What&apos;s still owed, with late fees</source>
        <translation>Noch offener Betrag, mit Mahngebühren</translation>
    </message>
    <message>
        <source>The new date a reminder asks to be paid by</source>
        <translation>Neue Zahlungsfrist einer Mahnung</translation>
    </message>
    <message>
        <source>The late fee this reminder adds</source>
        <translation>Mahngebühr dieser Mahnung</translation>
    </message>
    <message>
        <source>How many days the invoice is overdue</source>
        <translation>Tage seit der Fälligkeit</translation>
    </message>
    <message>
        <source>Your business name</source>
        <translation>Name des Unternehmens</translation>
    </message>
    <message>
        <source>Yes, reverse charge</source>
        <translation>Ja, Reverse-Charge</translation>
    </message>
    <message>
        <source>They have none: charge VAT as usual</source>
        <translation>Es gibt keine: Umsatzsteuer wie üblich berechnen</translation>
    </message>
    <message>
        <source>The same day as the invoice</source>
        <translation>Derselbe Tag wie die Rechnung</translation>
    </message>
    <message>
        <source>This month</source>
        <translation>Dieser Monat</translation>
    </message>
    <message>
        <source>Last month</source>
        <translation>Letzter Monat</translation>
    </message>
    <message>
        <source>Nothing, it&apos;s free</source>
        <translation>Nichts, es ist kostenlos</translation>
    </message>
    <message>
        <source>%1, as usual</source>
        <translation>%1, wie üblich</translation>
    </message>
    <message>
        <source>%1, as it is</source>
        <translation>%1, wie es ist</translation>
    </message>
    <message>
        <source>No, charge %1 as usual</source>
        <translation>Nein, %1 wie üblich berechnen</translation>
    </message>
    <message>
        <source>Yes, without %1</source>
        <translation>Ja, ohne %1</translation>
    </message>
    <message>
        <source>Year, restarts every year</source>
        <translation>Jahr, beginnt jedes Jahr neu</translation>
    </message>
    <message>
        <source>Year and month, restarts every month</source>
        <translation>Jahr und Monat, beginnt jeden Monat neu</translation>
    </message>
    <message>
        <source>Counter that never restarts</source>
        <translation>Zähler ohne Neubeginn</translation>
    </message>
    <message>
        <source>Client number, counts per client</source>
        <translation>Kundennummer, zählt je Kunde</translation>
    </message>
    <message>
        <source>Counter</source>
        <translation>Zähler</translation>
    </message>
    <message>
        <source>Year and counter</source>
        <translation>Jahr und Zähler</translation>
    </message>
    <message>
        <source>%1 and %2</source>
        <translation>%1 und %2</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Beleg</translation>
    </message>
    <message>
        <source>document</source>
        <translation>Beleg</translation>
    </message>
    <message>
        <source>This document</source>
        <translation>Dieser Beleg</translation>
    </message>
    <message>
        <source>quantity</source>
        <translation>Menge</translation>
    </message>
    <message>
        <source>one without a number</source>
        <translation>eine ohne Nummer</translation>
    </message>
    <message>
        <source>price</source>
        <translation>Preis</translation>
    </message>
    <message>
        <source>fee</source>
        <translation>Gebühr</translation>
    </message>
    <message>
        <source>rate</source>
        <translation>Satz</translation>
    </message>
    <message>
        <source>payment</source>
        <translation>Zahlung</translation>
    </message>
    <message>
        <source>discount</source>
        <translation>Rabatt</translation>
    </message>
    <message>
        <source>there are none</source>
        <translation>Es gibt keine</translation>
    </message>
    <message>
        <source>another program is changing it</source>
        <translation>ein anderes Programm ändert sie gerade</translation>
    </message>
    <message>
        <source>first name</source>
        <translation>Vorname</translation>
    </message>
    <message>
        <source>last name</source>
        <translation>Nachname</translation>
    </message>
    <message>
        <source>contact person</source>
        <translation>Kontaktperson</translation>
    </message>
    <message>
        <source>phone number</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>website</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>address</source>
        <translation>Anschrift</translation>
    </message>
    <message>
        <source>postal code</source>
        <translation>Postleitzahl</translation>
    </message>
    <message>
        <source>city</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>state</source>
        <translation>Bundesland</translation>
    </message>
    <message>
        <source>client number</source>
        <translation>Kundennummer</translation>
    </message>
    <message>
        <source>VAT ID</source>
        <translation>USt-IdNr.</translation>
    </message>
    <message>
        <source>tax ID</source>
        <translation>Steuernummer</translation>
    </message>
    <message>
        <source>notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Heligoland</source>
        <translation>Helgoland</translation>
    </message>
    <message>
        <source>Büsingen</source>
        <translation>Büsingen</translation>
    </message>
    <message>
        <source>Canary Islands</source>
        <translation>den Kanarischen Inseln</translation>
    </message>
    <message>
        <source>French overseas territories</source>
        <translation>den französischen Überseegebieten</translation>
    </message>
    <message>
        <source>Wallis and Futuna</source>
        <translation>Wallis und Futuna</translation>
    </message>
    <message>
        <source>French Polynesia</source>
        <translation>Französisch-Polynesien</translation>
    </message>
    <message>
        <source>New Caledonia</source>
        <translation>Neukaledonien</translation>
    </message>
    <message>
        <source>Mount Athos</source>
        <translation>Athos</translation>
    </message>
    <message>
        <source>Northern Ireland</source>
        <translation>Nordirland</translation>
    </message>
    <message>
        <source>Document %1</source>
        <translation>Beleg %1</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>„%1“</translation>
    </message>
    <message>
        <source>%1 has no lines yet, so it can&apos;t be sent.</source>
        <translation>%1 hat noch keine Positionen und kann nicht verschickt werden.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be sent; it gets its number with its client.</source>
        <translation>%1 kann nicht verschickt werden; die Nummer kommt mit dem Kunden.</translation>
    </message>
    <message>
        <source>An invoice was made from %1 already: %2. Duplicate that one to make another.</source>
        <translation>%1 wurde schon in Rechnung gestellt: %2. Für eine weitere diese duplizieren.</translation>
    </message>
    <message>
        <source>A recurring template has no status: the invoices that are made from it have.</source>
        <translation>Eine wiederkehrende Rechnung hat keinen Status: Den haben die Rechnungen, die aus ihr entstehen.</translation>
    </message>
    <message>
        <source>“%1” can&apos;t be done to %2 now, only %3.</source>
        <translation>%2: „%1“ geht jetzt nicht, nur %3.</translation>
    </message>
    <message>
        <source>%1 was credited (%2), so it can&apos;t become a draft again.</source>
        <translation>%1 ist gutgeschrieben (%2) und kann kein Entwurf mehr werden.</translation>
    </message>
    <message>
        <source>%1 is no quote, so no invoice is made from it.</source>
        <translation>%1 ist kein Angebot; daraus wird keine Rechnung.</translation>
    </message>
    <message>
        <source>%1 was declined. Reopen it first if the client has changed their mind.</source>
        <translation>%1 wurde abgelehnt. Hat der Kunde es sich anders überlegt: zuerst wieder öffnen.</translation>
    </message>
    <message>
        <source>%1 takes back an invoice and can&apos;t be made twice. To credit what is left, make a credit note from the invoice.</source>
        <translation>%1 nimmt eine Rechnung zurück und lässt sich nicht wiederholen. Was noch übrig ist, wird mit einer Gutschrift aus der Rechnung gutgeschrieben.</translation>
    </message>
    <message>
        <source>The project %1 is archived.</source>
        <translation>Das Projekt %1 ist archiviert.</translation>
    </message>
    <message>
        <source>%1 is no draft any more, so it stays. To take it back, make a credit note.</source>
        <translation>%1 ist kein Entwurf mehr und bleibt. Zurückgenommen wird mit einer Gutschrift.</translation>
    </message>
    <message>
        <source>%1 is no draft any more, so it stays.</source>
        <translation>%1 ist kein Entwurf mehr und bleibt.</translation>
    </message>
    <message>
        <source>Money was recorded for %1, so it stays.</source>
        <translation>Zu %1 ist eine Zahlung erfasst, deshalb bleibt sie.</translation>
    </message>
    <message>
        <source>%1 isn&apos;t a draft any more; its lines stay as they are.</source>
        <translation>%1 ist kein Entwurf mehr; die Positionen bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>There is no such line.</source>
        <translation>Diese Position gibt es nicht.</translation>
    </message>
    <message>
        <source>The first line has no line above it to belong to.</source>
        <translation>Über der ersten Position ist keine, zu der sie gehören könnte.</translation>
    </message>
    <message>
        <source>%1 takes no payments: only invoices do.</source>
        <translation>%1 nimmt keine Zahlungen: Das tun nur Rechnungen.</translation>
    </message>
    <message>
        <source>That day is in the future: record a payment when it has come in.</source>
        <translation>Dieser Tag liegt in der Zukunft: Eine Zahlung wird erfasst, wenn sie da ist.</translation>
    </message>
    <message>
        <source>The note can have at most %1 characters.</source>
        <translation>Die Notiz darf höchstens %1 Zeichen haben.</translation>
    </message>
    <message>
        <source>The tags can have at most %1 characters together.</source>
        <translation>Die Schlagwörter dürfen zusammen höchstens %1 Zeichen haben.</translation>
    </message>
    <message>
        <source>A document can have at most %1 lines.</source>
        <translation>Ein Beleg kann höchstens %1 Positionen haben.</translation>
    </message>
    <message>
        <source>A document can have at most %1 discounts.</source>
        <translation>Ein Beleg kann höchstens %1 Rabatte haben.</translation>
    </message>
    <message>
        <source>A document can have at most %1 fees.</source>
        <translation>Ein Beleg kann höchstens %1 Gebühren haben.</translation>
    </message>
    <message>
        <source>The quantity of line %1 is too large: at most %2.</source>
        <translation>Die Menge der Position %1 ist zu groß: höchstens %2.</translation>
    </message>
    <message>
        <source>The price of line %1 is too large: at most %2.</source>
        <translation>Der Preis der Position %1 ist zu groß: höchstens %2.</translation>
    </message>
    <message>
        <source>The tax rate of line %1 isn&apos;t between 0 and 100 %.</source>
        <translation>Der Steuersatz der Position %1 liegt nicht zwischen 0 und 100 %.</translation>
    </message>
    <message>
        <source>The amount of line %1 is too large: at most %2.</source>
        <translation>Der Betrag der Position %1 ist zu groß: höchstens %2.</translation>
    </message>
    <message>
        <source>A discount isn&apos;t between 0 and 100 %.</source>
        <translation>Ein Rabatt liegt nicht zwischen 0 und 100 %.</translation>
    </message>
    <message>
        <source>A discount is too large: at most %1.</source>
        <translation>Ein Rabatt ist zu groß: höchstens %1.</translation>
    </message>
    <message>
        <source>The tax rate of a fee isn&apos;t between 0 and 100 %.</source>
        <translation>Der Steuersatz einer Gebühr liegt nicht zwischen 0 und 100 %.</translation>
    </message>
    <message>
        <source>A fee is too large: at most %1.</source>
        <translation>Eine Gebühr ist zu groß: höchstens %1.</translation>
    </message>
    <message>
        <source>The document&apos;s figures are too large: at most %1 each.</source>
        <translation>Die Beträge des Belegs sind zu groß: höchstens je %1.</translation>
    </message>
    <message>
        <source>Only invoices take payments.</source>
        <translation>Nur Rechnungen nehmen Zahlungen.</translation>
    </message>
    <message>
        <source>A payment needs an amount.</source>
        <translation>Eine Zahlung braucht einen Betrag.</translation>
    </message>
    <message>
        <source>The payment is too large: at most %1.</source>
        <translation>Die Zahlung ist zu groß: höchstens %1.</translation>
    </message>
    <message>
        <source>The payments of a document can be at most %1 together.</source>
        <translation>Die Zahlungen eines Belegs können zusammen höchstens %1 betragen.</translation>
    </message>
    <message>
        <source>A late fee can&apos;t be negative.</source>
        <translation>Eine Mahngebühr kann nicht negativ sein.</translation>
    </message>
    <message>
        <source>The late fees of a document can be at most %1 together.</source>
        <translation>Die Mahngebühren eines Belegs können zusammen höchstens %1 betragen.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be credited: only invoices can.</source>
        <translation>%1 kann nicht gutgeschrieben werden: Das geht nur mit Rechnungen.</translation>
    </message>
    <message>
        <source>%1 is still a draft: change it or delete it instead.</source>
        <translation>%1 ist noch ein Entwurf: stattdessen ändern oder löschen.</translation>
    </message>
    <message>
        <source>Nothing is left to credit on %1: %2 took all of it.</source>
        <translation>Auf %1 ist nichts mehr gutzuschreiben: %2 hat alles übernommen.</translation>
    </message>
    <message>
        <source>Nothing is left to credit on %1.</source>
        <translation>Auf %1 ist nichts mehr gutzuschreiben.</translation>
    </message>
    <message>
        <source>These lines together change what is owed the wrong way, so they can&apos;t be credited by themselves.</source>
        <translation>Diese Positionen zusammen ändern den geschuldeten Betrag in die falsche Richtung; für sich lassen sie sich nicht gutschreiben.</translation>
    </message>
    <message>
        <source>%1 has no line %2; it has %3.</source>
        <translation>%1 hat keine Position %2, sondern %3.</translation>
    </message>
    <message>
        <source>Line %1 is named twice.</source>
        <translation>Position %1 ist zweimal genannt.</translation>
    </message>
    <message>
        <source>Nothing is left to credit of %1.</source>
        <translation>Von %1 ist nichts mehr gutzuschreiben.</translation>
    </message>
    <message>
        <source>The quantity to credit of %1 must be more than 0.</source>
        <translation>Von %1 muss mehr als 0 gutgeschrieben werden.</translation>
    </message>
    <message>
        <source>Only %1 is left to credit of %2.</source>
        <translation>Von %2 ist nur noch %1 gutzuschreiben.</translation>
    </message>
    <message>
        <source>Only %1 are left to credit of %2.</source>
        <translation>Von %2 sind nur noch %1 gutzuschreiben.</translation>
    </message>
    <message>
        <source>line %1</source>
        <translation>Position %1</translation>
    </message>
    <message>
        <source>line %1 (“%2”)</source>
        <translation>Position %1 („%2“)</translation>
    </message>
    <message>
        <source>Only invoices are reminded of.</source>
        <translation>Gemahnt werden nur Rechnungen.</translation>
    </message>
    <message>
        <source>It is still a draft: nobody was asked to pay it yet.</source>
        <translation>Sie ist noch ein Entwurf: Es wurde noch niemand um die Zahlung gebeten.</translation>
    </message>
    <message>
        <source>It is paid.</source>
        <translation>Sie ist bezahlt.</translation>
    </message>
    <message>
        <source>It isn&apos;t marked as sent.</source>
        <translation>Sie ist nicht als verschickt markiert.</translation>
    </message>
    <message>
        <source>Nothing is owed on it.</source>
        <translation>Es ist nichts mehr offen.</translation>
    </message>
    <message>
        <source>The day to pay by has passed.</source>
        <translation>Die Zahlungsfrist ist schon vorbei.</translation>
    </message>
    <message>
        <source>The day to pay by lies more than ten years ahead.</source>
        <translation>Die Zahlungsfrist liegt mehr als zehn Jahre in der Zukunft.</translation>
    </message>
    <message>
        <source>That is a recurring invoice already. Duplicate it to make another.</source>
        <translation>Das ist schon eine wiederkehrende Rechnung. Für eine weitere diese duplizieren.</translation>
    </message>
    <message>
        <source>%1 is no invoice, so no recurring one is made from it.</source>
        <translation>%1 ist keine Rechnung; daraus wird keine wiederkehrende.</translation>
    </message>
    <message>
        <source>%1 has no client, and a recurring invoice needs one.</source>
        <translation>%1 hat keinen Kunden, und eine wiederkehrende Rechnung braucht einen.</translation>
    </message>
    <message>
        <source>%1 has no lines yet, so there is nothing to repeat.</source>
        <translation>%1 hat noch keine Positionen; es gibt nichts zu wiederholen.</translation>
    </message>
    <message>
        <source>A schedule of weeks has no day of the month; its next date says the day of the week.</source>
        <translation>Ein Wochenrhythmus hat keinen Tag im Monat; der Wochentag ist der des nächsten Datums.</translation>
    </message>
    <message>
        <source>The day of the month must be 1 to 31; a shorter month uses its last day.</source>
        <translation>Der Tag im Monat muss 1 bis 31 sein; ein kürzerer Monat nimmt seinen letzten Tag.</translation>
    </message>
    <message>
        <source>The number of invoices must be 1 to %1.</source>
        <translation>Die Zahl der Rechnungen muss 1 bis %1 sein.</translation>
    </message>
    <message>
        <source>The last day is missing.</source>
        <translation>Der letzte Tag fehlt.</translation>
    </message>
    <message>
        <source>No such date comes any more.</source>
        <translation>Ein solches Datum kommt nicht mehr.</translation>
    </message>
    <message>
        <source>Its schedule was made by a newer Quillary: choose whether it goes by weeks, months, quarters or years.</source>
        <translation>Der Rhythmus stammt von einem neueren Quillary: Bitte Wochen, Monate, Quartale oder Jahre wählen.</translation>
    </message>
    <message>
        <source>It has no next date any more: choose one.</source>
        <translation>Es gibt kein nächstes Datum mehr: Bitte eines wählen.</translation>
    </message>
    <message>
        <source>It would end before its first invoice, that of %1.</source>
        <translation>Sie würde vor ihrer ersten Rechnung enden, der vom %1.</translation>
    </message>
    <message>
        <source>%1 is no recurring invoice.</source>
        <translation>%1 ist keine wiederkehrende Rechnung.</translation>
    </message>
    <message>
        <source>Give the view a name.</source>
        <translation>Die Ansicht braucht einen Namen.</translation>
    </message>
    <message>
        <source>There is a view called “%1” already.</source>
        <translation>Es gibt schon eine Ansicht „%1“.</translation>
    </message>
    <message>
        <source>Choose a client first: this number counts per client.</source>
        <translation>Zuerst einen Kunden wählen: Diese Nummer zählt je Kunde.</translation>
    </message>
    <message>
        <source>This client has no client number, which the format needs.</source>
        <translation>Dieser Kunde hat keine Kundennummer, und das Format braucht sie.</translation>
    </message>
    <message>
        <source>Couldn&apos;t find an unused number. Check the format in Settings › Numbering.</source>
        <translation>Es wurde keine freie Nummer gefunden. Bitte das Format unter Einstellungen › Nummern prüfen.</translation>
    </message>
    <message>
        <source>A new number couldn&apos;t be checked against the library. %1</source>
        <translation>Eine neue Nummer ließ sich nicht mit der Bibliothek vergleichen. %1</translation>
    </message>
    <message>
        <source>Enter a format.</source>
        <translation>Bitte ein Format eingeben.</translation>
    </message>
    <message>
        <source>{%1} isn&apos;t a placeholder.</source>
        <translation>{%1} ist kein Platzhalter.</translation>
    </message>
    <message>
        <source>Keep the format under %1 characters.</source>
        <translation>Das Format muss kürzer als %1 Zeichen sein.</translation>
    </message>
    <message>
        <source>The format can&apos;t contain tabs or line breaks.</source>
        <translation>Das Format darf keine Tabulatoren und Zeilenumbrüche enthalten.</translation>
    </message>
    <message>
        <source>Every { needs a matching }.</source>
        <translation>Zu jeder { gehört eine }.</translation>
    </message>
    <message>
        <source>Add a counter such as {###} so every number is different.</source>
        <translation>Bitte einen Zähler wie {###} einfügen, damit jede Nummer anders ist.</translation>
    </message>
    <message>
        <source>Use only one counter.</source>
        <translation>Bitte nur einen Zähler verwenden.</translation>
    </message>
    <message>
        <source>A counter can have at most %1 #.</source>
        <translation>Ein Zähler kann höchstens %1 # haben.</translation>
    </message>
    <message>
        <source>Client numbers can&apos;t include {client} or a per-client counter.</source>
        <translation>Kundennummern können weder {client} noch einen Zähler je Kunde enthalten.</translation>
    </message>
    <message>
        <source>Enter a file name format.</source>
        <translation>Bitte ein Format für Dateinamen eingeben.</translation>
    </message>
    <message>
        <source>Include {number} so two documents never get the same file name.</source>
        <translation>Bitte {number} einfügen, damit nie zwei Belege denselben Dateinamen bekommen.</translation>
    </message>
    <message>
        <source>“%1” can’t be undone, because what it changed has been changed again since.</source>
        <translation>„%1“ lässt sich nicht rückgängig machen, weil das Geänderte seitdem wieder geändert wurde.</translation>
    </message>
    <message>
        <source>“%1” can’t be redone, because what it changed has been changed again since.</source>
        <translation>„%1“ lässt sich nicht wiederholen, weil das Geänderte seitdem wieder geändert wurde.</translation>
    </message>
    <message>
        <source>“%1” can’t be undone, because other entries depend on what would go or come back.</source>
        <translation>„%1“ lässt sich nicht rückgängig machen, weil andere Einträge von dem abhängen, was verschwinden oder zurückkommen würde.</translation>
    </message>
    <message>
        <source>“%1” can’t be redone, because other entries depend on what would go or come back.</source>
        <translation>„%1“ lässt sich nicht wiederholen, weil andere Einträge von dem abhängen, was verschwinden oder zurückkommen würde.</translation>
    </message>
    <message>
        <source>The end lies before the start.</source>
        <translation>Das Ende liegt vor dem Beginn.</translation>
    </message>
    <message>
        <source>A time entry can&apos;t be longer than a million hours.</source>
        <translation>Eine Zeit kann nicht länger als eine Million Stunden sein.</translation>
    </message>
    <message>
        <source>A timer can&apos;t start or stop in the future.</source>
        <translation>Eine Stoppuhr kann nicht in der Zukunft beginnen oder enden.</translation>
    </message>
    <message>
        <source>This time is on an invoice. Remove its line there first; an invoice that was sent keeps it.</source>
        <translation>Diese Zeit steht auf einer Rechnung. Zuerst dort ihre Position entfernen; eine verschickte Rechnung behält sie.</translation>
    </message>
    <message>
        <source>“%1” is no time. Write from when to when, like 9:00-10:30, or how long, like 1:30 or 90m.</source>
        <translation>„%1“ ist keine Zeit. Schreiben lässt sich von wann bis wann, wie 9:00-10:30, oder wie lange, wie 1:30 oder 90m.</translation>
    </message>
    <message>
        <source>“%1” is too long: at most %2 characters.</source>
        <translation>„%1“ ist zu lang: höchstens %2 Zeichen.</translation>
    </message>
    <message>
        <source>“%1” must be true or false.</source>
        <translation>„%1“ muss „true“ oder „false“ sein.</translation>
    </message>
    <message>
        <source>“%1” must be a plain number such as 12.5.</source>
        <translation>„%1“ muss eine Zahl wie 12,5 sein.</translation>
    </message>
    <message>
        <source>“%1” must be a whole number from %2 to %3.</source>
        <translation>„%1“ muss eine ganze Zahl von %2 bis %3 sein.</translation>
    </message>
    <message>
        <source>“%1” is too large for a %2: at most %3.</source>
        <translation>„%1“ ist zu groß (%2): höchstens %3.</translation>
    </message>
    <message>
        <source>“%1” can&apos;t be negative: a %2 is 0 or more.</source>
        <translation>„%1“ kann nicht negativ sein (%2): 0 oder mehr.</translation>
    </message>
    <message>
        <source>“%1” is too large: a quantity is at most %2.</source>
        <translation>„%1“ ist zu groß: Eine Menge ist höchstens %2.</translation>
    </message>
    <message>
        <source>“%1” must be a percentage from 0 to 100 with at most two decimals, such as 19 or 5.5.</source>
        <translation>„%1“ muss ein Prozentsatz von 0 bis 100 mit höchstens zwei Nachkommastellen sein, wie 19 oder 5,5.</translation>
    </message>
    <message>
        <source>“%1” must be a date such as 2026-03-31.</source>
        <translation>„%1“ muss ein Datum wie 2026-03-31 sein.</translation>
    </message>
    <message>
        <source>“%1” has too many entries: at most %2.</source>
        <translation>„%1“ hat zu viele Einträge: höchstens %2.</translation>
    </message>
    <message>
        <source>“%1” is missing.</source>
        <translation>„%1“ fehlt.</translation>
    </message>
    <message>
        <source>“%1” “%2” is there already.</source>
        <translation>„%2“ gibt es schon („%1“).</translation>
    </message>
    <message>
        <source>“%1” must be an ISO currency code such as EUR.</source>
        <translation>„%1“ muss ein ISO-Währungscode wie EUR sein.</translation>
    </message>
    <message>
        <source>“%1” can&apos;t become %2: the price has more decimals than it.</source>
        <translation>„%1“ kann nicht %2 werden: Der Preis hat mehr Nachkommastellen.</translation>
    </message>
    <message>
        <source>“%1” can&apos;t become %2: the hourly rate or the late fee has more decimals than it.</source>
        <translation>„%1“ kann nicht %2 werden: Der Stundensatz oder die Mahngebühr hat mehr Nachkommastellen.</translation>
    </message>
    <message>
        <source>“%1” isn&apos;t known. `quillary unit list` shows your own units; hour, day and piece are usual.</source>
        <translation>„%1“ ist nicht bekannt. Üblich sind Stunde, Tag und Stück; die eigenen stehen unter Katalog › Einheiten.</translation>
    </message>
    <message>
        <source>“%1” is none of your tax rates: %2.</source>
        <translation>„%1“ ist keiner der Steuersätze: %2.</translation>
    </message>
    <message>
        <source>“%1” must be a code of UN/ECE Recommendation 20 such as HUR or C62.</source>
        <translation>„%1“ muss ein Code der UN/ECE-Empfehlung 20 wie HUR oder C62 sein.</translation>
    </message>
    <message>
        <source>“%1” must be intro or outro.</source>
        <translation>„%1“ muss „intro“ oder „outro“ sein.</translation>
    </message>
    <message>
        <source>“%1” must be one of %2.</source>
        <translation>„%1“ muss eines von diesen sein: %2.</translation>
    </message>
    <message>
        <source>“%1” is read from a file.</source>
        <translation>„%1“ wird aus einer Datei gelesen.</translation>
    </message>
    <message>
        <source>“%1” must be a colour written as #RRGGBB, such as #1F4E8C.</source>
        <translation>„%1“ muss eine Farbe der Form #RRGGBB sein, wie #1F4E8C.</translation>
    </message>
    <message>
        <source>“%1” isn&apos;t a UPI ID such as name@bank.</source>
        <translation>„%1“ ist keine UPI-ID wie name@bank.</translation>
    </message>
    <message>
        <source>“%1” names “%2”, which is no unit of ours.</source>
        <translation>„%1“ nennt „%2“; diese Einheit gibt es hier nicht.</translation>
    </message>
    <message>
        <source>“%1” must be a two-letter ISO country code such as DE.</source>
        <translation>„%1“ muss ein ISO-Ländercode mit zwei Buchstaben wie DE sein.</translation>
    </message>
    <message>
        <source>“%1” must be an email address such as name@example.com.</source>
        <translation>„%1“ muss eine E-Mail-Adresse wie name@example.com sein.</translation>
    </message>
    <message>
        <source>“%1” doesn&apos;t have the form of a VAT ID, such as ATU12345678 or DE123456789.</source>
        <translation>„%1“ hat nicht die Form einer USt-IdNr. wie ATU12345678 oder DE123456789.</translation>
    </message>
    <message>
        <source>“%1” isn&apos;t a valid IBAN: its check digits or its length are wrong.</source>
        <translation>„%1“ ist keine gültige IBAN: Die Prüfziffern oder die Länge stimmen nicht.</translation>
    </message>
    <message>
        <source>“%1” isn&apos;t a valid BIC: it has 8 or 11 characters, such as COBADEFFXXX.</source>
        <translation>„%1“ ist kein gültiger BIC: Er hat 8 oder 11 Zeichen, wie COBADEFFXXX.</translation>
    </message>
    <message>
        <source>Give the client a name: “name”, or “first_name” and “last_name”.</source>
        <translation>Der Kunde braucht einen Namen.</translation>
    </message>
    <message>
        <source>Give the contact person a name or an email address.</source>
        <translation>Die Kontaktperson braucht einen Namen oder eine E-Mail-Adresse.</translation>
    </message>
    <message>
        <source>“%1” belongs to invoices: a %2 asks for no payment.</source>
        <translation>„%1“ gehört zu Rechnungen. %2: Hier wird keine Zahlung verlangt.</translation>
    </message>
    <message>
        <source>“%1” belongs to quotes.</source>
        <translation>„%1“ gehört zu Angeboten.</translation>
    </message>
    <message>
        <source>“%1” is before the quote&apos;s own date.</source>
        <translation>„%1“ liegt vor dem Datum des Angebots.</translation>
    </message>
    <message>
        <source>“%1” must be a date such as 2026-03-31, a period such as 2026-03-01..2026-03-31, or today, yesterday, invoice_date, this_week, last_week, this_month or last_month.</source>
        <translation>„%1“ muss ein Datum oder ein Zeitraum sein.</translation>
    </message>
    <message>
        <source>“%1” holds too many.</source>
        <translation>„%1“: Das sind zu viele.</translation>
    </message>
    <message>
        <source>“%1” names line %2; there are %3 lines.</source>
        <translation>„%1“ nennt Position %2; es gibt %3.</translation>
    </message>
    <message>
        <source>“%1” is needed: “%2” is priced in %3, the document is in %4.</source>
        <translation>„%1“ wird gebraucht: „%2“ hat einen Preis in %3, der Beleg ist in %4.</translation>
    </message>
    <message>
        <source>“%1” isn&apos;t known. Use hour, day, week, month, year, minute, piece, flat rate, page or word, another usual unit such as kilogram or metre, or one of the user&apos;s own units.</source>
        <translation>„%1“ ist nicht bekannt. Möglich sind Stunde, Tag, Woche, Monat, Jahr, Minute, Stück, Pauschale, Seite, Wort, eine andere übliche Einheit wie Kilogramm oder Meter oder eine eigene.</translation>
    </message>
    <message>
        <source>“%1” needs a document without tax: set tax_exempt as well.</source>
        <translation>„%1“ setzt einen Beleg ohne Steuer voraus.</translation>
    </message>
    <message>
        <source>“%1” needs a client.</source>
        <translation>„%1“ setzt einen Kunden voraus.</translation>
    </message>
    <message>
        <source>The last invoice, %1, is in %2; this document is in %3.</source>
        <translation>Die letzte Rechnung, %1, ist in %2; dieser Beleg ist in %3.</translation>
    </message>
    <message>
        <source>%1 has no earlier invoice to copy.</source>
        <translation>Für %1 gibt es keine frühere Rechnung zum Übernehmen.</translation>
    </message>
    <message>
        <source>Give “discount_percent” or “discount_amount”, not both.</source>
        <translation>Ein Rabatt ist entweder ein Prozentsatz oder ein Betrag.</translation>
    </message>
    <message>
        <source>The currency can&apos;t become %1: line %2 (“%3”) bills tracked time, which is priced in %4. Give its price in %5 in the same call (change_lines with unit_price), remove the line first, or set “currency” to %6.</source>
        <translation>Die Währung kann nicht %1 werden: Position %2 („%3“) berechnet erfasste Zeit in %4. Erst die Position entfernen und mit einem Preis in %5 neu anlegen oder bei %6 bleiben.</translation>
    </message>
    <message>
        <source>The currency can&apos;t become %1: line %2 (“%3”) comes from the catalog, where it is priced in %4. Give its price in %5 in the same call (change_lines with unit_price), remove the line first, or set “currency” to %6.</source>
        <translation>Die Währung kann nicht %1 werden: Position %2 („%3“) kommt aus dem Katalog und hat dort einen Preis in %4. Erst die Position entfernen und mit einem Preis in %5 neu anlegen oder bei %6 bleiben.</translation>
    </message>
    <message>
        <source>A line can bill a million hours at most.</source>
        <translation>Eine Position kann höchstens eine Million Stunden berechnen.</translation>
    </message>
    <message>
        <source>Time goes on invoices: no other document bills it.</source>
        <translation>Zeit gehört auf Rechnungen: Kein anderer Beleg berechnet sie.</translation>
    </message>
    <message>
        <source>The invoice has no client, so it can&apos;t be said whose time it bills.</source>
        <translation>Die Rechnung hat keinen Kunden; so ist nicht klar, wessen Zeit sie berechnet.</translation>
    </message>
    <message>
        <source>%1 has no unbilled time like that.</source>
        <translation>Für %1 gibt es keine solche noch nicht berechnete Zeit.</translation>
    </message>
    <message>
        <source>%1 has no unbilled time.</source>
        <translation>Für %1 gibt es keine noch nicht berechnete Zeit.</translation>
    </message>
    <message>
        <source>The hourly rate is in %1, this document in %2. Set the document&apos;s currency to %3, or add the hours with add_lines and their price.</source>
        <translation>Der Stundensatz ist in %1, dieser Beleg in %2. Den Beleg auf %3 stellen oder die Stunden als Positionen mit Preis eintragen.</translation>
    </message>
    <message>
        <source>%1 is a template, which only the user changes, in Quillary. The invoices made from it can be changed while they are drafts.</source>
        <translation>%1 ist eine Vorlage. Die Rechnungen, die aus ihr entstehen, lassen sich als Entwürfe ändern.</translation>
    </message>
    <message>
        <source>%1 is no draft any more, so it can&apos;t be changed. To correct an invoice that was sent, make a credit note for it and a new invoice.</source>
        <translation>%1 ist kein Entwurf mehr und wird nicht geändert. Eine verschickte Rechnung wird mit einer Gutschrift und einer neuen Rechnung berichtigt.</translation>
    </message>
    <message>
        <source>%1 is no draft any more, so it can&apos;t be changed.</source>
        <translation>%1 ist kein Entwurf mehr und wird nicht geändert.</translation>
    </message>
    <message>
        <source>The client can&apos;t become %1: line %2 (“%3”) bills tracked time of %4. Remove such lines first, in a call of its own (remove_lines), then change the client.</source>
        <translation>Der Kunde kann nicht %1 werden: Position %2 („%3“) berechnet Zeit für %4. Zuerst solche Positionen entfernen, dann den Kunden ändern.</translation>
    </message>
    <message>
        <source>There&apos;s no client %1. find_clients lists them, create_client adds one.</source>
        <translation>Es gibt keinen Kunden %1.</translation>
    </message>
    <message>
        <source>There&apos;s no project %1.</source>
        <translation>Es gibt kein Projekt %1.</translation>
    </message>
    <message>
        <source>There&apos;s no catalog item %1. find_catalog_items lists them.</source>
        <translation>Im Katalog gibt es %1 nicht.</translation>
    </message>
    <message>
        <source>%1 is no email address.</source>
        <translation>%1 ist keine E-Mail-Adresse.</translation>
    </message>
    <message>
        <source>There is no address in the list of recipients.</source>
        <translation>In der Liste der Empfänger steht keine Adresse.</translation>
    </message>
    <message>
        <source>No email address is known: fill it in in the mail program.</source>
        <translation>Es ist keine E-Mail-Adresse bekannt: Bitte im Mailprogramm ausfüllen.</translation>
    </message>
    <message>
        <source>The client&apos;s address %1 is none that mail can go to: correct it in the mail program.</source>
        <translation>An die Adresse %1 des Kunden kann keine E-Mail gehen: Bitte im Mailprogramm berichtigen.</translation>
    </message>
    <message>
        <source>The email still says %1, for which there is no value.</source>
        <translation>In der E-Mail steht noch %1; dafür gibt es keinen Wert.</translation>
    </message>
    <message>
        <source>The text isn&apos;t readable as UTF-8.</source>
        <translation>Der Text ist nicht als UTF-8 lesbar.</translation>
    </message>
    <message>
        <source>An email needs a subject.</source>
        <translation>Eine E-Mail braucht einen Betreff.</translation>
    </message>
    <message>
        <source>A subject is one line of text.</source>
        <translation>Ein Betreff ist eine einzige Zeile.</translation>
    </message>
    <message>
        <source>A subject has at most %1 characters.</source>
        <translation>Ein Betreff hat höchstens %1 Zeichen.</translation>
    </message>
    <message>
        <source>The text of an email has at most %1 characters.</source>
        <translation>Der Text einer E-Mail hat höchstens %1 Zeichen.</translation>
    </message>
    <message>
        <source>Take at least %1 characters; a few words are easy to remember and hard to guess.</source>
        <translation>Mindestens %1 Zeichen; ein paar Wörter sind leicht zu merken und schwer zu erraten.</translation>
    </message>
    <message>
        <source>That is too long for a passphrase.</source>
        <translation>Das ist zu lang für ein Passwort.</translation>
    </message>
    <message>
        <source>That isn&apos;t the passphrase.</source>
        <translation>Das ist nicht das Passwort.</translation>
    </message>
    <message>
        <source>That isn&apos;t the passphrase. %1</source>
        <translation>Das ist nicht das Passwort. %1</translation>
    </message>
    <message>
        <source>Try again in a second.</source>
        <translation>In einer Sekunde noch einmal versuchen.</translation>
    </message>
    <message>
        <source>Try again in %1 seconds.</source>
        <translation>In %1 Sekunden noch einmal versuchen.</translation>
    </message>
    <message>
        <source>There isn&apos;t enough memory to keep a passphrase safely. Close other programs, then try again.</source>
        <translation>Der Arbeitsspeicher reicht nicht, um ein Passwort sicher aufzuheben. Bitte andere Programme schließen und es noch einmal versuchen.</translation>
    </message>
    <message>
        <source>The lock in %1 can&apos;t be understood. Delete the file to go on without a passphrase; the library stays as it is.</source>
        <translation>Die Sperre in %1 ist nicht lesbar. Wird die Datei gelöscht, geht es ohne Passwort weiter; die Bibliothek bleibt, wie sie ist.</translation>
    </message>
    <message>
        <source>The settings in %1 can&apos;t be understood, so AI assistants are turned off. Turn them on again to begin with new settings; the file is kept.</source>
        <translation>Die Einstellungen in %1 sind nicht lesbar; deshalb sind KI-Assistenten abgeschaltet. Wer sie wieder einschaltet, beginnt mit neuen Einstellungen; die Datei bleibt erhalten.</translation>
    </message>
    <message>
        <source>%1 AI assistants are turned off until it can be read.</source>
        <translation>%1 KI-Assistenten sind abgeschaltet, bis sie lesbar ist.</translation>
    </message>
    <message>
        <source>The library in “%1” can’t be changed, because its folder is read-only. Choose a folder that you may write to.</source>
        <translation>Die Bibliothek in „%1“ kann nicht geändert werden, weil der Ordner schreibgeschützt ist. Bitte einen Ordner mit Schreibrecht wählen.</translation>
    </message>
    <message>
        <source>The library in “%1” is open in another Quillary. Close it there, then try again.</source>
        <translation>Die Bibliothek in „%1“ ist in einem anderen Quillary geöffnet. Bitte dort schließen und es noch einmal versuchen.</translation>
    </message>
    <message>
        <source>The running Quillary couldn&apos;t hand the library over. Close it, then try again.</source>
        <translation>Das laufende Quillary konnte die Bibliothek nicht übergeben. Bitte schließen und es noch einmal versuchen.</translation>
    </message>
    <message>
        <source>The folder “%1” can’t be made. Choose a place for the library where you may write.</source>
        <translation>Der Ordner „%1“ kann nicht angelegt werden. Bitte einen Ort mit Schreibrecht für die Bibliothek wählen.</translation>
    </message>
    <message>
        <source>“%1” isn’t a Quillary library.</source>
        <translation>„%1“ ist keine Quillary-Bibliothek.</translation>
    </message>
    <message>
        <source>There is no library in “%1”, so there is nothing to back up.</source>
        <translation>In „%1“ ist keine Bibliothek; es gibt nichts zu sichern.</translation>
    </message>
    <message>
        <source>There is no library in “%1”.</source>
        <translation>In „%1“ ist keine Bibliothek.</translation>
    </message>
    <message>
        <source>“%1” is still empty.</source>
        <translation>„%1“ ist noch leer.</translation>
    </message>
    <message>
        <source>“%1” was last used with an older Quillary. Open it in Quillary once, so that it is brought up to date.</source>
        <translation>„%1“ wurde zuletzt mit einem älteren Quillary benutzt. Bitte einmal in Quillary öffnen, damit sie auf den neuen Stand kommt.</translation>
    </message>
    <message>
        <source>“%1” was last used with a newer Quillary (its format is %2, this Quillary knows formats up to %3). Open it with that version, or update this one.</source>
        <translation>„%1“ wurde zuletzt mit einem neueren Quillary benutzt (Format %2; dieses Quillary kennt Formate bis %3). Bitte mit jener Version öffnen oder diese aktualisieren.</translation>
    </message>
    <message>
        <source>“%1” has tables that no version of Quillary makes, so it was left alone. Restore a backup of it.</source>
        <translation>„%1“ enthält Tabellen, die keine Version von Quillary anlegt, und blieb deshalb unberührt. Bitte eine Sicherung wiederherstellen.</translation>
    </message>
    <message>
        <source>“%1” couldn’t be brought up to date, because its disk is full; it is as it was. Make room for about %2 MB and start again.</source>
        <translation>„%1“ konnte nicht auf den neuen Stand gebracht werden, weil der Datenträger voll ist; sie ist, wie sie war. Bitte etwa %2 MB freimachen und neu starten.</translation>
    </message>
    <message>
        <source>“%1” was changed by another program while it was being brought up to date. Close that program and start again.</source>
        <translation>„%1“ wurde von einem anderen Programm geändert, während sie auf den neuen Stand kam. Bitte jenes Programm schließen und neu starten.</translation>
    </message>
    <message>
        <source>“%1” couldn’t be brought up to date: the new file didn’t pass its check. The library is as it was.</source>
        <translation>„%1“ konnte nicht auf den neuen Stand gebracht werden: Die neue Datei hat die Prüfung nicht bestanden. Die Bibliothek ist, wie sie war.</translation>
    </message>
    <message>
        <source>The backup couldn’t be made, because the disk that holds “%1” is full. Make room and try again.</source>
        <translation>Die Sicherung wurde nicht erstellt, weil der Datenträger mit „%1“ voll ist. Bitte Platz schaffen und es noch einmal versuchen.</translation>
    </message>
    <message>
        <source>The backup didn’t pass its check and wasn’t kept. Try again.</source>
        <translation>Die Sicherung hat die Prüfung nicht bestanden und wurde nicht aufgehoben. Bitte noch einmal versuchen.</translation>
    </message>
    <message>
        <source>The backup couldn’t be restored, because the disk that holds “%1” is full. The library is as it was. Make room and try again.</source>
        <translation>Die Sicherung wurde nicht wiederhergestellt, weil der Datenträger mit „%1“ voll ist. Die Bibliothek ist, wie sie war. Bitte Platz schaffen und es noch einmal versuchen.</translation>
    </message>
    <message>
        <source>“%1” is empty.</source>
        <translation>„%1“ ist leer.</translation>
    </message>
    <message>
        <source>“%1” is the library itself.</source>
        <translation>„%1“ ist die Bibliothek selbst.</translation>
    </message>
    <message>
        <source>There is no backup “%1” in “%2”.</source>
        <translation>In „%2“ gibt es keine Sicherung „%1“.</translation>
    </message>
    <message>
        <source>The copy of “%1” came out incomplete and wasn’t kept. Try again.</source>
        <translation>Die Kopie von „%1“ war unvollständig und wurde nicht aufgehoben. Bitte noch einmal versuchen.</translation>
    </message>
    <message>
        <source>The disk that holds “%1” is full. Nothing was saved by this step. Make room and try again.</source>
        <translation>Der Datenträger mit „%1“ ist voll. Dieser Schritt hat nichts gespeichert. Bitte Platz schaffen und es noch einmal versuchen.</translation>
    </message>
    <message>
        <source>“%1” can’t be written. Check that you may write to this file and its folder, and that the disk isn’t write-protected.</source>
        <translation>„%1“ kann nicht geschrieben werden. Bitte prüfen, ob für die Datei und ihren Ordner das Schreibrecht da ist und der Datenträger nicht schreibgeschützt ist.</translation>
    </message>
    <message>
        <source>“%1” can’t be opened. Check that the folder exists and that you may read and write it.</source>
        <translation>„%1“ kann nicht geöffnet werden. Bitte prüfen, ob es den Ordner gibt und ob er gelesen und beschrieben werden darf.</translation>
    </message>
    <message>
        <source>“%1” couldn’t be written: the disk reports a fault. Nothing was saved by this step. Check the disk, then try again.</source>
        <translation>„%1“ konnte nicht geschrieben werden: Der Datenträger meldet einen Fehler. Dieser Schritt hat nichts gespeichert. Bitte den Datenträger prüfen und es noch einmal versuchen.</translation>
    </message>
    <message>
        <source>“%1” is being used by another program. Close that program and try again.</source>
        <translation>„%1“ wird von einem anderen Programm benutzt. Bitte jenes schließen und es noch einmal versuchen.</translation>
    </message>
    <message>
        <source>“%1” is damaged and can’t be read. Restore a backup of it.</source>
        <translation>„%1“ ist beschädigt und nicht lesbar. Bitte eine Sicherung wiederherstellen.</translation>
    </message>
    <message>
        <source>A text or an image is too large to be saved. Shorten it and try again.</source>
        <translation>Ein Text oder Bild ist zu groß zum Speichern. Bitte kürzen und es noch einmal versuchen.</translation>
    </message>
    <message>
        <source>There isn’t enough memory. Close other programs and try again.</source>
        <translation>Der Arbeitsspeicher reicht nicht. Bitte andere Programme schließen und es noch einmal versuchen.</translation>
    </message>
    <message>
        <source>“%1” couldn’t be read or written: the disk reports a fault. Check the disk, then try again.</source>
        <translation>„%1“ konnte nicht gelesen oder geschrieben werden: Der Datenträger meldet einen Fehler. Bitte den Datenträger prüfen und es noch einmal versuchen.</translation>
    </message>
    <message>
        <source>“%1” couldn’t be read or written.</source>
        <translation>„%1“ konnte nicht gelesen oder geschrieben werden.</translation>
    </message>
    <message>
        <source>Couldn&apos;t make the folder %1: %2.</source>
        <translation>Der Ordner %1 konnte nicht angelegt werden: %2.</translation>
    </message>
    <message>
        <source>Couldn&apos;t write %1: %2.</source>
        <translation>%1 konnte nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>Couldn&apos;t open %1: %2.</source>
        <translation>%1 konnte nicht geöffnet werden: %2.</translation>
    </message>
    <message>
        <source>Couldn&apos;t read %1: %2.</source>
        <translation>%1 konnte nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>Couldn&apos;t look at %1: %2.</source>
        <translation>%1 konnte nicht angesehen werden: %2.</translation>
    </message>
    <message>
        <source>Couldn&apos;t lock %1: %2.</source>
        <translation>%1 konnte nicht gesperrt werden: %2.</translation>
    </message>
    <message>
        <source>%1 is a folder, not a file.</source>
        <translation>%1 ist ein Ordner, keine Datei.</translation>
    </message>
    <message>
        <source>%1 is too large: at most %2.</source>
        <translation>%1 ist zu groß: höchstens %2.</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 Byte</translation>
    </message>
    <message>
        <source>A file couldn&apos;t be saved in the folder “%1” (%2).</source>
        <translation>Im Ordner „%1“ konnte keine Datei gespeichert werden (%2).</translation>
    </message>
    <message>
        <source>There is no folder “%1”.</source>
        <translation>Es gibt keinen Ordner „%1“.</translation>
    </message>
    <message>
        <source>Files can&apos;t be saved in the folder “%1”.</source>
        <translation>Im Ordner „%1“ lassen sich keine Dateien speichern.</translation>
    </message>
    <message>
        <source>The disk with the folder “%1” is full.</source>
        <translation>Der Datenträger mit dem Ordner „%1“ ist voll.</translation>
    </message>
    <message>
        <source>The folder “%1” holds too many files named “%2”.</source>
        <translation>Der Ordner „%1“ enthält zu viele Dateien namens „%2“.</translation>
    </message>
    <message>
        <source>Couldn&apos;t listen at %1</source>
        <translation>Auf %1 ließ sich nicht warten.</translation>
    </message>
    <message>
        <source>Quillary is already running.</source>
        <translation>Quillary läuft schon.</translation>
    </message>
    <message>
        <source>The socket path is too long.</source>
        <translation>Der Pfad des Sockets ist zu lang.</translation>
    </message>
    <message>
        <source>Pages can&apos;t be printed here.</source>
        <translation>Hier können keine Seiten gedruckt werden.</translation>
    </message>
    <message>
        <source>Pages can&apos;t be printed because a part of Quillary is missing. Please install it again. (%1)</source>
        <translation>Es können keine Seiten gedruckt werden, weil ein Teil von Quillary fehlt. Bitte neu installieren. (%1)</translation>
    </message>
    <message>
        <source>Pages can&apos;t be printed here, because this system doesn&apos;t let the page renderer lock itself in (user namespaces are off). Turn them on, or set QTWEBENGINE_DISABLE_SANDBOX=1.</source>
        <translation>Hier können keine Seiten gedruckt werden, weil dieses System den Seitenrenderer sich nicht abschotten lässt (User-Namespaces sind aus). Bitte einschalten oder QTWEBENGINE_DISABLE_SANDBOX=1 setzen.</translation>
    </message>
    <message>
        <source>The page could not be printed, because the page renderer stopped twice while it worked on it.</source>
        <translation>Die Seite wurde nicht gedruckt, weil der Seitenrenderer dabei zweimal stehen blieb.</translation>
    </message>
    <message>
        <source>The page could not be printed, because it took too long.</source>
        <translation>Die Seite wurde nicht gedruckt, weil es zu lange dauerte.</translation>
    </message>
    <message>
        <source>The page could not be printed, because the page renderer did not accept it.</source>
        <translation>Die Seite wurde nicht gedruckt, weil der Seitenrenderer sie nicht annahm.</translation>
    </message>
    <message>
        <source>The page could not be printed, because the page renderer handed back nothing.</source>
        <translation>Die Seite wurde nicht gedruckt, weil der Seitenrenderer nichts lieferte.</translation>
    </message>
    <message>
        <source>The printed page could not be finished as a PDF file. (%1)</source>
        <translation>Die gedruckte Seite ließ sich nicht als PDF fertigstellen. (%1)</translation>
    </message>
    <message>
        <source>This is not a PDF that can be read.</source>
        <translation>Das ist kein lesbares PDF.</translation>
    </message>
    <message>
        <source>There is no page %1; the document has %2.</source>
        <translation>Es gibt keine Seite %1; der Beleg hat %2.</translation>
    </message>
    <message>
        <source>No picture of this page could be made.</source>
        <translation>Von dieser Seite ließ sich kein Bild machen.</translation>
    </message>
    <message>
        <source>The picture is damaged and can&apos;t be read.</source>
        <translation>Das Bild ist beschädigt und nicht lesbar.</translation>
    </message>
    <message>
        <source>The picture has %1 megapixels. A logo may have up to %2; please choose a smaller one.</source>
        <translation>Das Bild hat %1 Megapixel. Ein Logo darf bis zu %2 haben; bitte ein kleineres wählen.</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>Die Datei ist leer.</translation>
    </message>
    <message>
        <source>The file is larger than %1 MB. Please choose a smaller picture.</source>
        <translation>Die Datei ist größer als %1 MB. Bitte ein kleineres Bild wählen.</translation>
    </message>
    <message>
        <source>This file is not a picture that can be a logo. Please choose a PNG, JPEG, WebP or SVG file.</source>
        <translation>Diese Datei ist kein Bild für ein Logo. Bitte eine PNG-, JPEG-, WebP- oder SVG-Datei wählen.</translation>
    </message>
    <message>
        <source>Nothing can be seen in this picture: all of it is transparent.</source>
        <translation>In diesem Bild ist nichts zu sehen: Es ist ganz durchsichtig.</translation>
    </message>
    <message>
        <source>This SVG file is damaged and can&apos;t be read.</source>
        <translation>Diese SVG-Datei ist beschädigt und nicht lesbar.</translation>
    </message>
    <message>
        <source>This SVG drawing is too complex for a logo.</source>
        <translation>Diese SVG-Zeichnung ist zu aufwendig für ein Logo.</translation>
    </message>
    <message>
        <source>The file has no rows.</source>
        <translation>Die Datei hat keine Zeilen.</translation>
    </message>
    <message>
        <source>The file isn&apos;t readable text. Save it as CSV from your spreadsheet app and try again.</source>
        <translation>Die Datei ist kein lesbarer Text. Bitte in der Tabellenkalkulation als CSV speichern und es noch einmal versuchen.</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>Spalte %1</translation>
    </message>
    <message>
        <source>There is no name; the email address stands for it.</source>
        <translation>Der Name fehlt; dafür steht die E-Mail-Adresse.</translation>
    </message>
    <message>
        <source>Only the first %1 characters of the %2 are kept.</source>
        <translation>%2: Nur die ersten %1 Zeichen bleiben.</translation>
    </message>
    <message>
        <source>“%1” is what a spreadsheet program left of a longer number.</source>
        <translation>„%1“ ist, was eine Tabellenkalkulation von einer längeren Nummer übrig ließ.</translation>
    </message>
    <message>
        <source>“%1” is neither a company nor a person; it is kept in the notes.</source>
        <translation>„%1“ ist weder Firma noch Person; es steht in den Notizen.</translation>
    </message>
    <message>
        <source>“%1” is no email address; it is kept in the notes.</source>
        <translation>„%1“ ist keine E-Mail-Adresse; es steht in den Notizen.</translation>
    </message>
    <message>
        <source>“%1” is no known country; it is kept in the notes.</source>
        <translation>„%1“ ist kein bekanntes Land; es steht in den Notizen.</translation>
    </message>
    <message>
        <source>“%1” is no known currency; it is kept in the notes.</source>
        <translation>„%1“ ist keine bekannte Währung; es steht in den Notizen.</translation>
    </message>
    <message>
        <source>Documents can&apos;t be written in “%1”; it is kept in the notes.</source>
        <translation>Belege gibt es nicht in der Sprache „%1“; das steht in den Notizen.</translation>
    </message>
    <message>
        <source>“%1” doesn&apos;t have the form of a VAT ID; it is kept in the notes.</source>
        <translation>„%1“ hat nicht die Form einer USt-IdNr.; es steht in den Notizen.</translation>
    </message>
    <message>
        <source>The currency can&apos;t become %1: the price %2 has more decimals than it.</source>
        <translation>Die Währung kann nicht %1 werden: Der Preis %2 hat mehr Nachkommastellen.</translation>
    </message>
    <message>
        <source>The currency can&apos;t become %1: the discount %2 has more decimals than it.</source>
        <translation>Die Währung kann nicht %1 werden: Der Rabatt %2 hat mehr Nachkommastellen.</translation>
    </message>
    <message>
        <source>The currency can&apos;t become %1: the fee %2 has more decimals than it.</source>
        <translation>Die Währung kann nicht %1 werden: Die Gebühr %2 hat mehr Nachkommastellen.</translation>
    </message>
    <message>
        <source>The interval must be 1 to %1 weeks.</source>
        <translation>Der Abstand muss 1 bis %1 Wochen sein.</translation>
    </message>
    <message>
        <source>The interval must be 1 to %1 months.</source>
        <translation>Der Abstand muss 1 bis %1 Monate sein.</translation>
    </message>
    <message>
        <source>The interval must be 1 to %1 quarters.</source>
        <translation>Der Abstand muss 1 bis %1 Quartale sein.</translation>
    </message>
    <message>
        <source>The interval must be 1 to %1 years.</source>
        <translation>Der Abstand muss 1 bis %1 Jahre sein.</translation>
    </message>
    <message>
        <source>No tax</source>
        <translation>Ohne Steuer</translation>
    </message>
    <message>
        <source>No client</source>
        <translation>Ohne Kunde</translation>
    </message>
    <message>
        <source>Others</source>
        <translation>Übrige</translation>
    </message>
    <message>
        <source>%1: the invoice of %2 can&apos;t be made. %3</source>
        <translation>%1: Die Rechnung vom %2 kann nicht erstellt werden. %3</translation>
    </message>
    <message>
        <source>The recurring invoice for %1</source>
        <translation>Die wiederkehrende Rechnung für %1</translation>
    </message>
    <message>
        <source>A recurring invoice without title and client</source>
        <translation>Eine wiederkehrende Rechnung ohne Titel und Kunde</translation>
    </message>
    <message>
        <source>The template is damaged. Make a new one and delete it.</source>
        <translation>Die Vorlage ist beschädigt. Legen Sie eine neue an und löschen Sie diese.</translation>
    </message>
    <message>
        <source>Its schedule was made by a newer Quillary. Choose another, or update Quillary.</source>
        <translation>Ihr Rhythmus stammt von einem neueren Quillary. Wählen Sie einen anderen oder bringen Sie Quillary auf den neuesten Stand.</translation>
    </message>
    <message>
        <source>Its client was deleted. Choose a client for it, or delete it.</source>
        <translation>Ihr Kunde wurde gelöscht. Wählen Sie einen anderen Kunden oder löschen Sie die Vorlage.</translation>
    </message>
    <message>
        <source>The recurring invoices were not made: %1</source>
        <translation>Die wiederkehrenden Rechnungen wurden nicht erstellt: %1</translation>
    </message>
    <message>
        <source>%1% (%2)</source>
        <translation>%1 % (%2)</translation>
    </message>
    <message>
        <source>Delete Recurring Invoice</source>
        <translation>Wiederkehrende Rechnung löschen</translation>
    </message>
</context>
<context>
    <name>OwedInvoice</name>
    <message>
        <source>%1 Another recurring invoice can&apos;t be made, either.</source>
        <translation>%1 Auch eine weitere wiederkehrende Rechnung kann nicht erstellt werden.</translation>
    </message>
    <message>
        <source>%1 Nor can %2 other recurring invoices be made.</source>
        <translation>%1 Auch %2 weitere wiederkehrende Rechnungen können nicht erstellt werden.</translation>
    </message>
</context>
<context>
    <name>PaperDesk</name>
    <message>
        <source>Saved as %1</source>
        <translation>Gespeichert als %1</translation>
    </message>
</context>
<context>
    <name>PaperPrinting</name>
    <message>
        <source>Printing…</source>
        <translation>Wird gedruckt…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>PaymentCodeHint</name>
    <message>
        <source>Your invoices are usually in %1: they don&apos;t get one.</source>
        <translation>Rechnungen sind hier meist in %1: Sie bekommen keinen.</translation>
    </message>
    <message>
        <source>It isn&apos;t printed yet: the account holder and the name of your business are missing.</source>
        <translation>Er wird noch nicht gedruckt: Der Kontoinhaber und der Name des Unternehmens fehlen.</translation>
    </message>
    <message>
        <source>It isn&apos;t printed yet: your IBAN is missing.</source>
        <translation>Er wird noch nicht gedruckt: Die eigene IBAN fehlt.</translation>
    </message>
    <message>
        <source>It isn&apos;t printed: your IBAN is wrong, its check digits or its length.</source>
        <translation>Er wird nicht gedruckt: An der eigenen IBAN stimmen die Prüfziffern oder die Länge nicht.</translation>
    </message>
    <message>
        <source>It isn&apos;t printed yet: your UPI ID is missing.</source>
        <translation>Er wird noch nicht gedruckt: Die eigene UPI-ID fehlt.</translation>
    </message>
    <message>
        <source>It isn&apos;t printed: your UPI ID is wrong.</source>
        <translation>Er wird nicht gedruckt: Die eigene UPI-ID stimmt nicht.</translation>
    </message>
    <message>
        <source>The QR code appears on invoices in euros (with your IBAN) and rupees (with your UPI ID); banking apps fill in the payment from it.</source>
        <translation>Der QR-Code steht auf Rechnungen in Euro (mit der eigenen IBAN) und Rupien (mit der eigenen UPI-ID); Banking-Apps füllen daraus die Zahlung aus.</translation>
    </message>
    <message>
        <source>For invoices in Indian rupees, so clients can pay by scanning a QR code.</source>
        <translation>Für Rechnungen in indischen Rupien: Kunden bezahlen, indem sie einen QR-Code scannen.</translation>
    </message>
    <message>
        <source>A UPI ID looks like name@bank.</source>
        <translation>Eine UPI-ID sieht aus wie name@bank.</translation>
    </message>
</context>
<context>
    <name>Quillary::AssistantsPage</name>
    <message>
        <source>Allowed</source>
        <translation>Erlaubt</translation>
    </message>
    <message>
        <source>Not allowed</source>
        <translation>Nicht erlaubt</translation>
    </message>
    <message>
        <source>Waits for your word</source>
        <translation>Wartet auf Antwort</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Erledigt</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Refused</source>
        <translation>Abgelehnt</translation>
    </message>
    <message>
        <source>Assistants may use Quillary</source>
        <translation>Assistenten dürfen Quillary benutzen</translation>
    </message>
    <message>
        <source>Assistant</source>
        <translation>Assistent</translation>
    </message>
    <message>
        <source>Your word</source>
        <translation>Erlaubnis</translation>
    </message>
    <message>
        <source>Last asked</source>
        <translation>Zuletzt gefragt</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Wann</translation>
    </message>
    <message>
        <source>What it did</source>
        <translation>Was geschah</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Assistants that have asked</source>
        <translation>Assistenten, die gefragt haben</translation>
    </message>
    <message>
        <source>What they did</source>
        <translation>Was sie getan haben</translation>
    </message>
    <message>
        <source>What assistants did</source>
        <translation>Was Assistenten getan haben</translation>
    </message>
    <message>
        <source>Connecting an assistant app</source>
        <translation>Eine Assistenten-App verbinden</translation>
    </message>
    <message>
        <source>What assistants may do</source>
        <translation>Was Assistenten dürfen</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Erlauben</translation>
    </message>
    <message>
        <source>Don&apos;t Allow</source>
        <translation>Nicht erlauben</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Vergessen</translation>
    </message>
    <message>
        <source>Most assistant apps take this in their settings, under MCP servers:</source>
        <translation>Die meisten Assistenten-Apps nehmen dies in ihren Einstellungen unter „MCP-Server“ entgegen:</translation>
    </message>
    <message>
        <source>Settings for assistant apps</source>
        <translation>Einstellungen für Assistenten-Apps</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copied.</source>
        <translation>Kopiert.</translation>
    </message>
    <message>
        <source>The settings before could not be understood; they are kept as %1</source>
        <translation>Die bisherigen Einstellungen waren nicht lesbar; sie liegen jetzt in %1</translation>
    </message>
</context>
<context>
    <name>Quillary::BarChart</name>
    <message>
        <source>%1, %2: %3</source>
        <translation>%1, %2: %3</translation>
    </message>
</context>
<context>
    <name>Quillary::CatalogSection</name>
    <message>
        <source>Kinds</source>
        <translation>Arten</translation>
    </message>
</context>
<context>
    <name>Quillary::ClientDetails</name>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Organisation</source>
        <translation>Organisation</translation>
    </message>
    <message>
        <source>Person</source>
        <translation>Person</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>First name</source>
        <translation>Vorname</translation>
    </message>
    <message>
        <source>Last name</source>
        <translation>Nachname</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Anschrift</translation>
    </message>
    <message>
        <source>Street</source>
        <translation>Straße</translation>
    </message>
    <message>
        <source>Postal code</source>
        <translation>Postleitzahl</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Bundesland</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Land</translation>
    </message>
    <message>
        <source>Not given</source>
        <translation>Keine Angabe</translation>
    </message>
    <message>
        <source>Invoicing</source>
        <translation>Abrechnung</translation>
    </message>
    <message>
        <source>VAT ID</source>
        <translation>USt-IdNr.</translation>
    </message>
    <message>
        <source>Such as DE123456789, or “none”</source>
        <translation>Zum Beispiel DE123456789 oder „none“ für keine</translation>
    </message>
    <message>
        <source>Tax number</source>
        <translation>Steuernummer</translation>
    </message>
    <message>
        <source>Days to pay</source>
        <translation>Zahlungsziel in Tagen</translation>
    </message>
    <message>
        <source>As usual</source>
        <translation>Wie üblich</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Hourly rate</source>
        <translation>Stundensatz</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Documents of this client</source>
        <translation>Belege dieses Kunden</translation>
    </message>
    <message>
        <source>Nothing is open.</source>
        <translation>Nichts ist offen.</translation>
    </message>
    <message>
        <source>Open: %1</source>
        <translation>Offen: %1</translation>
    </message>
    <message>
        <source>Change Client</source>
        <translation>Kunden ändern</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Belege</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeiten</translation>
    </message>
    <message>
        <source>Contact Persons</source>
        <translation>Ansprechpartner</translation>
    </message>
    <message>
        <source>Time worked for this client</source>
        <translation>Zeit für diesen Kunden</translation>
    </message>
    <message>
        <source>Unbilled time: %1 hours, %2</source>
        <translation>Offene Zeit: %1 Stunden, %2</translation>
    </message>
    <message>
        <source>As usual: %1</source>
        <translation>Wie üblich: %1</translation>
    </message>
</context>
<context>
    <name>Quillary::ClientDocumentsModel</name>
    <message>
        <source>Document</source>
        <translation>Beleg</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Gesamt</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Offen</translation>
    </message>
    <message>
        <source>%1 without a number</source>
        <translation>%1 ohne Nummer</translation>
    </message>
</context>
<context>
    <name>Quillary::ClientListModel</name>
    <message>
        <source>No name</source>
        <translation>Ohne Namen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Offen</translation>
    </message>
</context>
<context>
    <name>Quillary::ClientPicker</name>
    <message>
        <source>Name, number or city</source>
        <translation>Name, Nummer oder Ort</translation>
    </message>
    <message>
        <source>New client “%1”</source>
        <translation>Neuer Kunde „%1“</translation>
    </message>
</context>
<context>
    <name>Quillary::ClientSheet</name>
    <message>
        <source>New Client</source>
        <translation>Neuer Kunde</translation>
    </message>
    <message>
        <source>Add Client</source>
        <translation>Kunden anlegen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Street</source>
        <translation>Straße</translation>
    </message>
    <message>
        <source>Postal code</source>
        <translation>Postleitzahl</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Land</translation>
    </message>
    <message>
        <source>VAT ID</source>
        <translation>USt-IdNr.</translation>
    </message>
    <message>
        <source>Another Quillary is using the library at this moment. Try again in a second.</source>
        <translation>Ein anderes Quillary benutzt gerade die Bibliothek. Bitte gleich noch einmal versuchen.</translation>
    </message>
    <message>
        <source>%1 is there already. A name, an email address or a VAT ID of its own tells another client from them.</source>
        <translation>%1 ist schon vorhanden. Ein eigener Name, eine eigene E-Mail-Adresse oder USt-IdNr. unterscheidet einen anderen Kunden davon.</translation>
    </message>
    <message>
        <source>Not given</source>
        <translation>Keine Angabe</translation>
    </message>
</context>
<context>
    <name>Quillary::ClientsSection</name>
    <message>
        <source>Import Clients</source>
        <translation>Kunden importieren</translation>
    </message>
    <message>
        <source>Client lists (*.csv *.tsv *.txt);;All files (*)</source>
        <translation>Kundenlisten (*.csv *.tsv *.txt);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>Kunden</translation>
    </message>
    <message>
        <source>Name, number, city or email</source>
        <translation>Name, Nummer, Ort oder E-Mail</translation>
    </message>
    <message>
        <source>Find in this list</source>
        <translation>In dieser Liste suchen</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>Importieren…</translation>
    </message>
    <message>
        <source>Import clients from a file</source>
        <translation>Kunden aus einer Datei importieren</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>New client</source>
        <translation>Neuer Kunde</translation>
    </message>
    <message>
        <source>No clients yet. Add one, or bring over the list that another program or a spreadsheet has saved.</source>
        <translation>Noch keine Kunden. Hier lässt sich einer anlegen oder die Liste übernehmen, die ein anderes Programm oder eine Tabellenkalkulation gespeichert hat.</translation>
    </message>
    <message>
        <source>New Client</source>
        <translation>Neuer Kunde</translation>
    </message>
    <message>
        <source>1 client</source>
        <translation>1 Kunde</translation>
    </message>
    <message>
        <source>%1 clients</source>
        <translation>%1 Kunden</translation>
    </message>
    <message>
        <source>1 client was imported.</source>
        <translation>1 Kunde wurde importiert.</translation>
    </message>
    <message>
        <source>%1 clients were imported.</source>
        <translation>%1 Kunden wurden importiert.</translation>
    </message>
</context>
<context>
    <name>Quillary::ContactSheet</name>
    <message>
        <source>New Contact Person</source>
        <translation>Neuer Ansprechpartner</translation>
    </message>
    <message>
        <source>Contact Person</source>
        <translation>Ansprechpartner</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Eintragen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Role</source>
        <translation>Funktion</translation>
    </message>
    <message>
        <source>Such as accounting</source>
        <translation>Zum Beispiel Buchhaltung</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>Add Contact Person</source>
        <translation>Ansprechpartner hinzufügen</translation>
    </message>
    <message>
        <source>Change Contact Person</source>
        <translation>Ansprechpartner ändern</translation>
    </message>
</context>
<context>
    <name>Quillary::ContactsModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Role</source>
        <translation>Funktion</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>Telefon</translation>
    </message>
</context>
<context>
    <name>Quillary::ContactsPanel</name>
    <message>
        <source>Edit…</source>
        <translation>Bearbeiten…</translation>
    </message>
    <message>
        <source>Put First</source>
        <translation>An den Anfang</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Contact persons</source>
        <translation>Ansprechpartner</translation>
    </message>
    <message>
        <source>Add…</source>
        <translation>Hinzufügen…</translation>
    </message>
    <message>
        <source>Add a contact person</source>
        <translation>Ansprechpartner hinzufügen</translation>
    </message>
    <message>
        <source>Emails offer this person before the others.</source>
        <translation>E-Mails bieten diese Person vor den anderen an.</translation>
    </message>
    <message>
        <source>Nobody is named. Emails go to the client&apos;s own address.</source>
        <translation>Niemand ist genannt. E-Mails gehen an die Adresse des Kunden selbst.</translation>
    </message>
    <message>
        <source>Emails offer the client&apos;s own address first, then these in their order.</source>
        <translation>E-Mails bieten zuerst die Adresse des Kunden selbst an, dann diese in ihrer Reihenfolge.</translation>
    </message>
    <message>
        <source>Remove Contact Person</source>
        <translation>Ansprechpartner entfernen</translation>
    </message>
    <message>
        <source>Put Contact Person First</source>
        <translation>Ansprechpartner an den Anfang</translation>
    </message>
</context>
<context>
    <name>Quillary::DataPage</name>
    <message>
        <source>Of the day</source>
        <translation>Täglich</translation>
    </message>
    <message>
        <source>Made by you</source>
        <translation>Von Hand</translation>
    </message>
    <message>
        <source>Before a restore</source>
        <translation>Vor einer Wiederherstellung</translation>
    </message>
    <message>
        <source>Before an upgrade</source>
        <translation>Vor einer Umstellung</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Back Up Now</source>
        <translation>Jetzt sichern</translation>
    </message>
    <message>
        <source>Made</source>
        <translation>Erstellt</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Backups</source>
        <translation>Sicherungen</translation>
    </message>
    <message>
        <source>This library is in memory only and goes when the program ends.</source>
        <translation>Diese Bibliothek liegt nur im Arbeitsspeicher und verschwindet mit dem Programmende.</translation>
    </message>
    <message>
        <source>The library is in %1</source>
        <translation>Die Bibliothek liegt in %1</translation>
    </message>
    <message>
        <source>Making a backup…</source>
        <translation>Sicherung wird erstellt…</translation>
    </message>
    <message>
        <source>Made %1</source>
        <translation>%1 erstellt</translation>
    </message>
    <message>
        <source>Restore Backup</source>
        <translation>Sicherung wiederherstellen</translation>
    </message>
    <message>
        <source>Put %1 in the place of the library?</source>
        <translation>Soll %1 an die Stelle der Bibliothek treten?</translation>
    </message>
    <message>
        <source>What was entered or changed since then will not be in the library any more. The library as it is now stays among the backups as “Quillary Before Restore”, and can be restored from there. Assistants wait until it is done.</source>
        <translation>Was seitdem eingegeben oder geändert wurde, ist dann nicht mehr in der Bibliothek. Die jetzige Bibliothek bleibt als „Quillary Before Restore“ bei den Sicherungen und kann von dort wiederhergestellt werden. Assistenten warten so lange.</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Backups (*.sqlite);;All files (*)</source>
        <translation>Sicherungen (*.sqlite);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Restore…</source>
        <translation>Wiederherstellen…</translation>
    </message>
    <message>
        <source>Restore from File…</source>
        <translation>Aus Datei wiederherstellen…</translation>
    </message>
    <message>
        <source>Restore the chosen backup</source>
        <translation>Die gewählte Sicherung wiederherstellen</translation>
    </message>
    <message>
        <source>the backup of %1</source>
        <translation>die Sicherung vom %1</translation>
    </message>
    <message>
        <source>the backup %1</source>
        <translation>die Sicherung %1</translation>
    </message>
    <message>
        <source>Restoring %1…</source>
        <translation>Wiederherstellung läuft: %1…</translation>
    </message>
    <message>
        <source>The backup was not restored; the library is as it was. %1</source>
        <translation>Die Sicherung wurde nicht wiederhergestellt; die Bibliothek ist, wie sie war. %1</translation>
    </message>
    <message>
        <source>Restored %1. The library as it was is kept as %2</source>
        <translation>Wiederhergestellt: %1. Die bisherige Bibliothek liegt in %2</translation>
    </message>
    <message>
        <source>Restored %1.</source>
        <translation>Wiederhergestellt: %1.</translation>
    </message>
</context>
<context>
    <name>Quillary::DesktopNotices</name>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
</context>
<context>
    <name>Quillary::DiscountsModel</name>
    <message>
        <source>Add a discount…</source>
        <translation>Rabatt hinzufügen…</translation>
    </message>
    <message>
        <source>Add Discount</source>
        <translation>Rabatt hinzufügen</translation>
    </message>
    <message>
        <source>Change Discount</source>
        <translation>Rabatt ändern</translation>
    </message>
    <message>
        <source>Remove Discount</source>
        <translation>Rabatt entfernen</translation>
    </message>
    <message>
        <source>Write a discount as a percentage from 0% to 100%, or as an amount such as 50.00.</source>
        <translation>Einen Rabatt als Prozentsatz von 0 % bis 100 % oder als Betrag wie 50,00 eingeben.</translation>
    </message>
</context>
<context>
    <name>Quillary::DocumentCommands</name>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Record Payment…</source>
        <translation>Zahlung erfassen…</translation>
    </message>
    <message>
        <source>Send Reminder…</source>
        <translation>Mahnen…</translation>
    </message>
    <message>
        <source>Email…</source>
        <translation>E-Mail…</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>Als PDF speichern</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Drucken…</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>New Invoice Like the Client&apos;s Last</source>
        <translation>Neue Rechnung wie die letzte des Kunden</translation>
    </message>
    <message>
        <source>Make Invoice</source>
        <translation>Rechnung erstellen</translation>
    </message>
    <message>
        <source>Make Credit Note</source>
        <translation>Gutschrift erstellen</translation>
    </message>
    <message>
        <source>Make Recurring…</source>
        <translation>Wiederkehrend machen…</translation>
    </message>
    <message>
        <source>Delete Draft…</source>
        <translation>Entwurf löschen…</translation>
    </message>
    <message>
        <source>A copy was made as a draft.</source>
        <translation>Eine Kopie wurde als Entwurf angelegt.</translation>
    </message>
    <message>
        <source>A draft invoice was made from the quote.</source>
        <translation>Aus dem Angebot wurde ein Rechnungsentwurf erstellt.</translation>
    </message>
    <message>
        <source>A draft credit note was made for all that is left of the invoice.</source>
        <translation>Über alles, was von der Rechnung noch übrig ist, wurde ein Gutschriftentwurf erstellt.</translation>
    </message>
    <message>
        <source>New Invoice</source>
        <translation>Neue Rechnung</translation>
    </message>
    <message>
        <source>A draft like the client&apos;s last invoice was made.</source>
        <translation>Ein Entwurf wie die letzte Rechnung des Kunden wurde erstellt.</translation>
    </message>
    <message>
        <source>The recurring invoice was made.</source>
        <translation>Die wiederkehrende Rechnung wurde angelegt.</translation>
    </message>
    <message>
        <source>Delete Draft</source>
        <translation>Entwurf löschen</translation>
    </message>
    <message>
        <source>Delete %1?</source>
        <translation>%1 löschen?</translation>
    </message>
    <message>
        <source>Time that it billed becomes free again. Undo brings it back.</source>
        <translation>Darin abgerechnete Zeit wird wieder frei. „Rückgängig“ holt den Entwurf zurück.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>%1 was deleted.</source>
        <translation>%1 wurde gelöscht.</translation>
    </message>
    <message>
        <source>Marked as sent, though something is missing: %1</source>
        <translation>Als verschickt markiert, obwohl etwas fehlt: %1</translation>
    </message>
</context>
<context>
    <name>Quillary::DocumentFilterBar</name>
    <message>
        <source>Any time</source>
        <translation>Jederzeit</translation>
    </message>
    <message>
        <source>This month</source>
        <translation>Dieser Monat</translation>
    </message>
    <message>
        <source>Last three months</source>
        <translation>Letzte drei Monate</translation>
    </message>
    <message>
        <source>Last twelve months</source>
        <translation>Letzte zwölf Monate</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Number, client, title or tag</source>
        <translation>Nummer, Kunde, Titel oder Schlagwort</translation>
    </message>
    <message>
        <source>Find in this list</source>
        <translation>In dieser Liste suchen</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>Zeitraum</translation>
    </message>
    <message>
        <source>More filters</source>
        <translation>Weitere Filter</translation>
    </message>
    <message>
        <source>Client: %1</source>
        <translation>Kunde: %1</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>Kein Projekt</translation>
    </message>
    <message>
        <source>Project: %1</source>
        <translation>Projekt: %1</translation>
    </message>
    <message>
        <source>Tag: %1</source>
        <translation>Schlagwort: %1</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Take all filters away</source>
        <translation>Alle Filter aufheben</translation>
    </message>
    <message>
        <source>Take the filter away: %1</source>
        <translation>Filter aufheben: %1</translation>
    </message>
</context>
<context>
    <name>Quillary::DocumentFilterPopup</name>
    <message>
        <source>Ends today</source>
        <translation>Endet heute</translation>
    </message>
    <message>
        <source>Ends by tomorrow</source>
        <translation>Endet bis morgen</translation>
    </message>
    <message>
        <source>Ends within %1 days</source>
        <translation>Endet in %1 Tagen</translation>
    </message>
    <message>
        <source>Due today</source>
        <translation>Heute fällig</translation>
    </message>
    <message>
        <source>Due by tomorrow</source>
        <translation>Bis morgen fällig</translation>
    </message>
    <message>
        <source>Due within %1 days</source>
        <translation>Fällig in %1 Tagen</translation>
    </message>
    <message>
        <source>More filters</source>
        <translation>Weitere Filter</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>Kunde</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Tag</source>
        <translation>Schlagwort</translation>
    </message>
    <message>
        <source>Valid until</source>
        <translation>Gültig bis</translation>
    </message>
    <message>
        <source>Due</source>
        <translation>Fällig</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Any project</source>
        <translation>Jedes Projekt</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>Kein Projekt</translation>
    </message>
    <message>
        <source>%1 (archived)</source>
        <translation>%1 (archiviert)</translation>
    </message>
    <message>
        <source>Any tag</source>
        <translation>Jedes Schlagwort</translation>
    </message>
    <message>
        <source>Any day</source>
        <translation>Jeder Tag</translation>
    </message>
    <message>
        <source>Any currency</source>
        <translation>Jede Währung</translation>
    </message>
    <message>
        <source>A project that is gone</source>
        <translation>Ein gelöschtes Projekt</translation>
    </message>
</context>
<context>
    <name>Quillary::DocumentHead</name>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>More actions</source>
        <translation>Weitere Aktionen</translation>
    </message>
    <message>
        <source>This document has been sent, so it stays as it is. To correct it, take it back to draft under More ▸ Status, or credit it.</source>
        <translation>Dieser Beleg ist verschickt und bleibt deshalb, wie er ist. Zum Korrigieren unter Mehr ▸ Status wieder zum Entwurf machen oder eine Gutschrift dazu erstellen.</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>This document has been sent, so it stays as it is. To correct it, take it back to draft under More ▸ Status.</source>
        <translation>Dieser Beleg ist verschickt und bleibt deshalb, wie er ist. Zum Korrigieren unter Mehr ▸ Status wieder zum Entwurf machen.</translation>
    </message>
</context>
<context>
    <name>Quillary::DocumentListModel</name>
    <message>
        <source>No number</source>
        <translation>Ohne Nummer</translation>
    </message>
    <message>
        <source>No client</source>
        <translation>Ohne Kunde</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>Kunde</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Valid Until</source>
        <translation>Gültig bis</translation>
    </message>
    <message>
        <source>Due</source>
        <translation>Fällig</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Gesamt</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Offen</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
</context>
<context>
    <name>Quillary::DocumentPane</name>
    <message>
        <source>Choose a document to see its page.</source>
        <translation>Links einen Beleg wählen, um seine Seite zu sehen.</translation>
    </message>
</context>
<context>
    <name>Quillary::DocumentsRun</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>%v of %m</source>
        <translation>%v von %m</translation>
    </message>
    <message>
        <source>What failed</source>
        <translation>Was nicht ging</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cancelled. Nothing was done.</source>
        <translation>Abgebrochen. Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>1 of %1 could not be done.</source>
        <translation>1 von %1 ging nicht.</translation>
    </message>
    <message>
        <source>%1 of %2 could not be done.</source>
        <translation>%1 von %2 gingen nicht.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>Quillary::DocumentsSection</name>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>No credit notes. One is made from an invoice, under More ▸ Make Credit Note.</source>
        <translation>Keine Gutschriften. Sie entstehen aus einer Rechnung, unter Mehr ▸ Gutschrift erstellen.</translation>
    </message>
    <message>
        <source>No quotes yet. An accepted quote becomes an invoice with one click.</source>
        <translation>Noch keine Angebote. Ein angenommenes Angebot wird mit einem Klick zur Rechnung.</translation>
    </message>
    <message>
        <source>No invoices yet. The first one takes about two minutes.</source>
        <translation>Noch keine Rechnungen. Die erste dauert etwa zwei Minuten.</translation>
    </message>
    <message>
        <source>%1 selected</source>
        <translation>%1 ausgewählt</translation>
    </message>
    <message>
        <source>1 document</source>
        <translation>1 Beleg</translation>
    </message>
    <message>
        <source>%1 documents</source>
        <translation>%1 Belege</translation>
    </message>
    <message>
        <source>Nothing fits these filters.</source>
        <translation>Nichts passt zu diesen Filtern.</translation>
    </message>
    <message>
        <source>Show All</source>
        <translation>Alle zeigen</translation>
    </message>
</context>
<context>
    <name>Quillary::DraftCharges</name>
    <message>
        <source>Fees</source>
        <translation>Gebühren</translation>
    </message>
    <message>
        <source>Taxed</source>
        <translation>Mit Steuer</translation>
    </message>
    <message>
        <source>Reverse charge (EU)</source>
        <translation>Reverse-Charge (EU)</translation>
    </message>
    <message>
        <source>Outside the EU</source>
        <translation>Außerhalb der EU</translation>
    </message>
    <message>
        <source>Exempt</source>
        <translation>Steuerbefreit</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>Steuer</translation>
    </message>
    <message>
        <source>Why there&apos;s no tax</source>
        <translation>Grund der Befreiung</translation>
    </message>
    <message>
        <source>Change Tax</source>
        <translation>Steuer ändern</translation>
    </message>
    <message>
        <source>Discounts</source>
        <translation>Rabatte</translation>
    </message>
</context>
<context>
    <name>Quillary::DraftDates</name>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Valid until</source>
        <translation>Gültig bis</translation>
    </message>
    <message>
        <source> days</source>
        <translation> Tagen</translation>
    </message>
    <message>
        <source>To be paid within</source>
        <translation>Zahlbar in</translation>
    </message>
    <message>
        <source>Delivered or done</source>
        <translation>Geliefert oder geleistet</translation>
    </message>
    <message>
        <source>Write a date such as %1, or two with a dash between them.</source>
        <translation>Ein Datum wie %1 eingeben oder zwei mit einem Strich dazwischen.</translation>
    </message>
    <message>
        <source>A date, or from – to</source>
        <translation>Ein Datum oder von – bis</translation>
    </message>
    <message>
        <source>Due on %1</source>
        <translation>Fällig am %1</translation>
    </message>
</context>
<context>
    <name>Quillary::DraftDesk</name>
    <message>
        <source>Move Line</source>
        <translation>Position verschieben</translation>
    </message>
    <message>
        <source>Make Sub-Line</source>
        <translation>Zur Unterposition machen</translation>
    </message>
    <message>
        <source>Take Out of Line</source>
        <translation>Aus der Position lösen</translation>
    </message>
</context>
<context>
    <name>Quillary::DraftEditor</name>
    <message>
        <source>Client</source>
        <translation>Kunde</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Introduction</source>
        <translation>Einleitung</translation>
    </message>
    <message>
        <source>Closing text</source>
        <translation>Schlusstext</translation>
    </message>
    <message>
        <source>Change Document</source>
        <translation>Beleg ändern</translation>
    </message>
    <message>
        <source>Not saved yet: %1 &lt;a href=&quot;again&quot;&gt;Try again&lt;/a&gt;</source>
        <translation>Noch nicht gespeichert: %1 &lt;a href=&quot;again&quot;&gt;Noch einmal versuchen&lt;/a&gt;</translation>
    </message>
    <message>
        <source>%1 What you typed is kept here, and saved as soon as that works.</source>
        <translation>%1 Das Getippte bleibt hier erhalten und wird gespeichert, sobald es geht.</translation>
    </message>
</context>
<context>
    <name>Quillary::DraftFields</name>
    <message>
        <source>Change Document</source>
        <translation>Beleg ändern</translation>
    </message>
    <message>
        <source>Filled in</source>
        <translation>Vorausgefüllt</translation>
    </message>
</context>
<context>
    <name>Quillary::DraftFiling</name>
    <message>
        <source>Project, tags, language and currency</source>
        <translation>Projekt, Schlagwörter, Sprache und Währung</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>Kein Projekt</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>With commas between them</source>
        <translation>Mit Kommas dazwischen</translation>
    </message>
    <message>
        <source>Tags</source>
        <translation>Schlagwörter</translation>
    </message>
    <message>
        <source>Change Document</source>
        <translation>Beleg ändern</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>A currency has three letters, such as EUR.</source>
        <translation>Eine Währung hat drei Buchstaben, zum Beispiel EUR.</translation>
    </message>
</context>
<context>
    <name>Quillary::DueTeller</name>
    <message>
        <source>An invoice</source>
        <translation>Eine Rechnung</translation>
    </message>
    <message>
        <source>%1 is due today</source>
        <translation>%1 ist heute fällig</translation>
    </message>
    <message>
        <source>%1 is overdue since yesterday</source>
        <translation>%1 ist seit gestern überfällig</translation>
    </message>
    <message>
        <source>%1 is overdue by %2 days</source>
        <translation>%1 ist seit %2 Tagen überfällig</translation>
    </message>
    <message>
        <source>%1 more invoices are overdue</source>
        <translation>%1 weitere Rechnungen sind überfällig</translation>
    </message>
    <message>
        <source>%1 invoices are due today</source>
        <translation>%1 Rechnungen sind heute fällig</translation>
    </message>
    <message>
        <source>%1 recurring invoices were made</source>
        <translation>%1 wiederkehrende Rechnungen wurden erstellt</translation>
    </message>
    <message>
        <source>The recurring invoice %1 was made</source>
        <translation>Die wiederkehrende Rechnung %1 wurde erstellt</translation>
    </message>
</context>
<context>
    <name>Quillary::EmailPreview</name>
    <message>
        <source>What the preview is filled with</source>
        <translation>Womit die Vorschau gefüllt wird</translation>
    </message>
    <message>
        <source>Shown with made-up values</source>
        <translation>Mit erfundenen Werten</translation>
    </message>
    <message>
        <source>Shown with %1</source>
        <translation>Mit %1</translation>
    </message>
</context>
<context>
    <name>Quillary::EmailSheet</name>
    <message>
        <source>The email is open in your mail program. It goes out when you send it there.</source>
        <translation>Die E-Mail ist im Mailprogramm geöffnet. Sie geht erst hinaus, wenn sie dort gesendet wird.</translation>
    </message>
    <message>
        <source>Open this draft with your mail program and send it there: %1</source>
        <translation>Diesen Entwurf mit dem Mailprogramm öffnen und dort senden: %1</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Hand to Mail Program</source>
        <translation>Ans Mailprogramm geben</translation>
    </message>
    <message>
        <source>Mark it as sent</source>
        <translation>Als verschickt markieren</translation>
    </message>
    <message>
        <source>To</source>
        <translation>An</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Betreff</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Nachricht</translation>
    </message>
    <message>
        <source>Attached</source>
        <translation>Anhang</translation>
    </message>
    <message>
        <source>Addresses, with commas between them</source>
        <translation>Adressen, mit Kommas dazwischen</translation>
    </message>
    <message>
        <source>A draft with %1 for your mail program. Nothing is sent from here.</source>
        <translation>Ein Entwurf mit %1 für das Mailprogramm. Von hier wird nichts verschickt.</translation>
    </message>
    <message>
        <source>%1 &lt;%2&gt;</source>
        <translation>%1 &lt;%2&gt;</translation>
    </message>
    <message>
        <source>People at the client</source>
        <translation>Personen beim Kunden</translation>
    </message>
    <message>
        <source>The document isn&apos;t there any more.</source>
        <translation>Den Beleg gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>Something is missing in the document; its editor says what.</source>
        <translation>Im Beleg fehlt noch etwas; „Bearbeiten“ zeigt, was.</translation>
    </message>
</context>
<context>
    <name>Quillary::EmailTextsPage</name>
    <message>
        <source>Return to the Built-In Text</source>
        <translation>Zurück zum mitgelieferten Text</translation>
    </message>
    <message>
        <source>Placeholder</source>
        <translation>Platzhalter</translation>
    </message>
    <message>
        <source>What it stands for</source>
        <translation>Wofür er steht</translation>
    </message>
    <message>
        <source>Kind of email</source>
        <translation>Art der E-Mail</translation>
    </message>
    <message>
        <source>Language of the email</source>
        <translation>Sprache der E-Mail</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Betreff</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Placeholders</source>
        <translation>Platzhalter</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Insert the chosen placeholder</source>
        <translation>Den gewählten Platzhalter einfügen</translation>
    </message>
    <message>
        <source>Your own text</source>
        <translation>Eigener Text</translation>
    </message>
    <message>
        <source>Built-in text</source>
        <translation>Mitgelieferter Text</translation>
    </message>
    <message>
        <source>%1 (your own)</source>
        <translation>%1 (eigener)</translation>
    </message>
    <message>
        <source>This email has nothing to put in the place of %1: it stays as it is.</source>
        <translation>Diese E-Mail hat nichts, was an die Stelle von %1 treten könnte: Es bleibt stehen.</translation>
    </message>
    <message>
        <source>Restore Email Text</source>
        <translation>E-Mail-Text zurücksetzen</translation>
    </message>
    <message>
        <source>Change Email Text</source>
        <translation>E-Mail-Text ändern</translation>
    </message>
    <message>
        <source>%1 (not saved)</source>
        <translation>%1 (nicht gespeichert)</translation>
    </message>
</context>
<context>
    <name>Quillary::FeesModel</name>
    <message>
        <source>Add a fee, such as shipping…</source>
        <translation>Gebühr hinzufügen, zum Beispiel Versand…</translation>
    </message>
    <message>
        <source>“%1” is no number. Write it as 12.50.</source>
        <translation>„%1“ ist keine Zahl. Als 12,50 eingeben.</translation>
    </message>
    <message>
        <source>Add Fee</source>
        <translation>Gebühr hinzufügen</translation>
    </message>
    <message>
        <source>Change Fee</source>
        <translation>Gebühr ändern</translation>
    </message>
    <message>
        <source>Remove Fee</source>
        <translation>Gebühr entfernen</translation>
    </message>
</context>
<context>
    <name>Quillary::FieldForm</name>
    <message>
        <source>Not saved: %1 What you typed is kept there for now.</source>
        <translation>Nicht gespeichert: %1 Das Getippte bleibt dort vorerst stehen.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>Quillary::FirstStart</name>
    <message>
        <source>Your first invoice</source>
        <translation>Die erste Rechnung</translation>
    </message>
    <message>
        <source>This is how it will look. Tell it who you are; anything can be left for later, and changed at any time.</source>
        <translation>So wird sie aussehen. Es fehlen noch die eigenen Angaben; alles kann auf später warten und jederzeit geändert werden.</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Street</source>
        <translation>Straße</translation>
    </message>
    <message>
        <source>Postal code</source>
        <translation>Postleitzahl</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Land</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>VAT ID</source>
        <translation>USt-IdNr.</translation>
    </message>
    <message>
        <source>IBAN</source>
        <translation>IBAN</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>Gestaltung</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Los geht’s</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>Another Quillary is using the library at this moment. Try again in a second.</source>
        <translation>Ein anderes Quillary benutzt gerade die Bibliothek. Bitte gleich noch einmal versuchen.</translation>
    </message>
    <message>
        <source>Choose Look</source>
        <translation>Gestaltung wählen</translation>
    </message>
</context>
<context>
    <name>Quillary::ImportRowsModel</name>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Vorhanden</translation>
    </message>
    <message>
        <source>Empty</source>
        <translation>Leer</translation>
    </message>
    <message>
        <source>Row</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>Becomes</source>
        <translation>Wird</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>Kunde</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Remarks</source>
        <translation>Anmerkungen</translation>
    </message>
</context>
<context>
    <name>Quillary::ImportSheet</name>
    <message>
        <source>–</source>
        <translation>–</translation>
    </message>
    <message>
        <source>Client number</source>
        <translation>Kundennummer</translation>
    </message>
    <message>
        <source>Company</source>
        <translation>Firma</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>First name</source>
        <translation>Vorname</translation>
    </message>
    <message>
        <source>Last name</source>
        <translation>Nachname</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>Street</source>
        <translation>Straße</translation>
    </message>
    <message>
        <source>Below the street</source>
        <translation>Adresszusatz</translation>
    </message>
    <message>
        <source>Postal code</source>
        <translation>Postleitzahl</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Bundesland</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Land</translation>
    </message>
    <message>
        <source>VAT ID</source>
        <translation>USt-IdNr.</translation>
    </message>
    <message>
        <source>Tax number</source>
        <translation>Steuernummer</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Import Clients from %1</source>
        <translation>Kunden aus %1 importieren</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>What each column holds was told by its heading or its contents. Clients that are there already are left out.</source>
        <translation>Was jede Spalte enthält, verrieten Überschrift oder Inhalt. Kunden, die es schon gibt, werden ausgelassen.</translation>
    </message>
    <message>
        <source>Rows of the file</source>
        <translation>Zeilen der Datei</translation>
    </message>
    <message>
        <source>%1 new, %2 already there, %3 empty</source>
        <translation>%1 neu, %2 schon vorhanden, %3 leer</translation>
    </message>
    <message>
        <source>Choose which column names the clients.</source>
        <translation>Bitte die Spalte wählen, die die Kunden benennt.</translation>
    </message>
    <message>
        <source>Import 1 Client</source>
        <translation>1 Kunden importieren</translation>
    </message>
    <message>
        <source>Import %1 Clients</source>
        <translation>%1 Kunden importieren</translation>
    </message>
</context>
<context>
    <name>Quillary::KeysDialog</name>
    <message>
        <source>What the Keys Do</source>
        <translation>Was die Tasten bewirken</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Taste</translation>
    </message>
    <message>
        <source>What it does</source>
        <translation>Was sie bewirkt</translation>
    </message>
    <message>
        <source>The usual next step of a document</source>
        <translation>Der übliche nächste Schritt eines Belegs</translation>
    </message>
    <message>
        <source>Into what is chosen in a list; in a sheet, its answer</source>
        <translation>In das Gewählte hinein; in einem Blatt die Antwort</translation>
    </message>
    <message>
        <source>Back to the list; out of a sheet</source>
        <translation>Zurück zur Liste; aus einem Blatt hinaus</translation>
    </message>
    <message>
        <source>Delete what is chosen: drafts, lines, working time</source>
        <translation>Gewähltes löschen: Entwürfe, Positionen, Arbeitszeiten</translation>
    </message>
    <message>
        <source>Move the line up</source>
        <translation>Die Position nach oben schieben</translation>
    </message>
    <message>
        <source>Move the line down</source>
        <translation>Die Position nach unten schieben</translation>
    </message>
    <message>
        <source>Put the line under the one above it</source>
        <translation>Die Position der darüber unterordnen</translation>
    </message>
    <message>
        <source>Take the line out again</source>
        <translation>Die Position wieder herausnehmen</translation>
    </message>
</context>
<context>
    <name>Quillary::LibraryAccess</name>
    <message>
        <source>Another Quillary is using the library at this moment. Try again in a second.</source>
        <translation>Ein anderes Quillary benutzt gerade die Bibliothek. Bitte gleich noch einmal versuchen.</translation>
    </message>
</context>
<context>
    <name>Quillary::LinesModel</name>
    <message>
        <source>Add a line…</source>
        <translation>Position hinzufügen…</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>Menge</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>Preis</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>Steuer</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>“%1” is no number. Write it as 1250.50, or as a sum such as 3*12.50.</source>
        <translation>„%1“ ist keine Zahl. Als 1250,50 eingeben oder als Rechnung wie 3*12,50.</translation>
    </message>
    <message>
        <source>Add Line</source>
        <translation>Position hinzufügen</translation>
    </message>
    <message>
        <source>Change Line</source>
        <translation>Position ändern</translation>
    </message>
    <message>
        <source>Remove Lines</source>
        <translation>Positionen entfernen</translation>
    </message>
    <message>
        <source>Paste Lines</source>
        <translation>Positionen einfügen</translation>
    </message>
    <message>
        <source>Drag the number to move the line.</source>
        <translation>An der Nummer ziehen, um die Position zu verschieben.</translation>
    </message>
    <message>
        <source>From the catalog: %1</source>
        <translation>Aus dem Katalog: %1</translation>
    </message>
    <message>
        <source>Your usual tax rate</source>
        <translation>Ihr üblicher Steuersatz</translation>
    </message>
</context>
<context>
    <name>Quillary::LinesPanel</name>
    <message>
        <source>Copy the lines of the last invoice</source>
        <translation>Positionen der letzten Rechnung übernehmen</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Positionen</translation>
    </message>
    <message>
        <source>Copy Lines</source>
        <translation>Positionen übernehmen</translation>
    </message>
    <message>
        <source>Net %1</source>
        <translation>Netto %1</translation>
    </message>
    <message>
        <source> &amp;nbsp;·&amp;nbsp; Tax %1 %2</source>
        <translation> &amp;nbsp;·&amp;nbsp; Steuer %1 %2</translation>
    </message>
    <message>
        <source> &amp;nbsp;·&amp;nbsp; &lt;b&gt;Total %1&lt;/b&gt;</source>
        <translation> &amp;nbsp;·&amp;nbsp; &lt;b&gt;Gesamt %1&lt;/b&gt;</translation>
    </message>
</context>
<context>
    <name>Quillary::LinesTable</name>
    <message>
        <source>Lines</source>
        <translation>Positionen</translation>
    </message>
    <message>
        <source>Line numbers</source>
        <translation>Positionsnummern</translation>
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
        <source>Make It a Sub-Line</source>
        <translation>Zur Unterposition machen</translation>
    </message>
    <message>
        <source>Take It Out of Its Line</source>
        <translation>Aus der Position lösen</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
</context>
<context>
    <name>Quillary::LockPage</name>
    <message>
        <source>Unlock</source>
        <translation>Entsperren</translation>
    </message>
    <message>
        <source>Quillary is locked</source>
        <translation>Quillary ist gesperrt</translation>
    </message>
    <message>
        <source>Passphrase</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>That wasn&apos;t the passphrase. Try again in a second.</source>
        <translation>Das war nicht das Passwort. In einer Sekunde noch einmal versuchen.</translation>
    </message>
    <message>
        <source>That wasn&apos;t the passphrase. Try again in %1 seconds.</source>
        <translation>Das war nicht das Passwort. In %1 Sekunden noch einmal versuchen.</translation>
    </message>
</context>
<context>
    <name>Quillary::LogoRow</name>
    <message>
        <source>Choose a Logo</source>
        <translation>Logo wählen</translation>
    </message>
    <message>
        <source>Pictures (*.png *.jpg *.jpeg *.webp *.svg)</source>
        <translation>Bilder (*.png *.jpg *.jpeg *.webp *.svg)</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Logo</source>
        <translation>Logo</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Wählen…</translation>
    </message>
    <message>
        <source>Choose a logo</source>
        <translation>Logo wählen</translation>
    </message>
    <message>
        <source>Remove the logo</source>
        <translation>Logo entfernen</translation>
    </message>
    <message>
        <source>Change Logo</source>
        <translation>Logo ändern</translation>
    </message>
    <message>
        <source>Remove Logo</source>
        <translation>Logo entfernen</translation>
    </message>
</context>
<context>
    <name>Quillary::LookPage</name>
    <message>
        <source>A page in this look</source>
        <translation>Eine Seite in dieser Gestaltung</translation>
    </message>
</context>
<context>
    <name>Quillary::MainWindow</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Overview</source>
        <translation>Überblick</translation>
    </message>
    <message>
        <source>Recurring</source>
        <translation>Wiederkehrend</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>Kunden</translation>
    </message>
    <message>
        <source>Catalog</source>
        <translation>Katalog</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeiten</translation>
    </message>
    <message>
        <source>Reports</source>
        <translation>Berichte</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Quick Open…</source>
        <translation>Schnell öffnen…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>Rückgängig: %1</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Wiederholen: %1</translation>
    </message>
    <message>
        <source>Find in This List</source>
        <translation>In dieser Liste suchen</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Document</source>
        <translation>B&amp;eleg</translation>
    </message>
    <message>
        <source>No document is chosen</source>
        <translation>Kein Beleg ausgewählt</translation>
    </message>
    <message>
        <source>Set a passphrase first: the lock asks for it.</source>
        <translation>Zuerst ein Passwort festlegen: Die Sperre fragt danach.</translation>
    </message>
    <message>
        <source>Lock</source>
        <translation>Sperren</translation>
    </message>
    <message>
        <source>Not Saved Yet</source>
        <translation>Noch nicht gespeichert</translation>
    </message>
    <message>
        <source>Close Without Saving</source>
        <translation>Ohne Speichern schließen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>What the Keys Do</source>
        <translation>Was die Tasten bewirken</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>Something that you typed could not be saved: %1</source>
        <translation>Etwas Getipptes konnte nicht gespeichert werden: %1</translation>
    </message>
</context>
<context>
    <name>Quillary::MakeRecurringSheet</name>
    <message>
        <source>Make Recurring</source>
        <translation>Wiederkehrend machen</translation>
    </message>
    <message>
        <source>Invoices with the contents of %1 are made by themselves, beginning with the next one. %1 stays as it is.</source>
        <translation>Rechnungen mit dem Inhalt von %1 entstehen von selbst, beginnend mit der nächsten. %1 bleibt, wie es ist.</translation>
    </message>
    <message>
        <source>New Recurring Invoice</source>
        <translation>Neue wiederkehrende Rechnung</translation>
    </message>
    <message>
        <source>Like the invoice</source>
        <translation>Wie die Rechnung</translation>
    </message>
    <message>
        <source>Invoices with the contents of one that is there are made by themselves. It stays as it is; what the new ones hold can be changed afterwards.</source>
        <translation>Rechnungen mit dem Inhalt einer vorhandenen entstehen von selbst. Diese bleibt, wie sie ist; was in den neuen steht, lässt sich danach ändern.</translation>
    </message>
    <message>
        <source>The invoice isn&apos;t there any more.</source>
        <translation>Die Rechnung gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>No invoice is called that. Look at the one that is chosen now, and answer again.</source>
        <translation>So heißt keine Rechnung. Prüfen Sie die jetzt gewählte und antworten Sie noch einmal.</translation>
    </message>
</context>
<context>
    <name>Quillary::NumberingForm</name>
    <message>
        <source>Choose a pattern</source>
        <translation>Ein Muster wählen</translation>
    </message>
    <message>
        <source>Next number: %1</source>
        <translation>Nächste Nummer: %1</translation>
    </message>
    <message>
        <source>Write a whole number from 1 to %1.</source>
        <translation>Eine ganze Zahl von 1 bis %1 eingeben.</translation>
    </message>
</context>
<context>
    <name>Quillary::OverviewSection</name>
    <message>
        <source>1 invoice</source>
        <translation>1 Rechnung</translation>
    </message>
    <message>
        <source>%1 invoices</source>
        <translation>%1 Rechnungen</translation>
    </message>
    <message>
        <source>Overview</source>
        <translation>Überblick</translation>
    </message>
    <message>
        <source>Currency of the charts</source>
        <translation>Währung der Diagramme</translation>
    </message>
    <message>
        <source>Income by Month</source>
        <translation>Einnahmen nach Monat</translation>
    </message>
    <message>
        <source>Receivables by Age</source>
        <translation>Forderungen nach Alter</translation>
    </message>
    <message>
        <source>Nothing is owed to you.</source>
        <translation>Keine offenen Forderungen.</translation>
    </message>
    <message>
        <source>You are owed %1 in %2.</source>
        <translation>Offen sind %1 in %2.</translation>
    </message>
    <message>
        <source>Overdue</source>
        <translation>Überfällig</translation>
    </message>
    <message>
        <source>Nothing is overdue</source>
        <translation>Nichts ist überfällig</translation>
    </message>
    <message>
        <source>Due within %1 days</source>
        <translation>Fällig in %1 Tagen</translation>
    </message>
    <message>
        <source>Nothing is due</source>
        <translation>Nichts ist fällig</translation>
    </message>
    <message>
        <source>Drafts</source>
        <translation>Entwürfe</translation>
    </message>
    <message>
        <source>No draft waits</source>
        <translation>Kein Entwurf wartet</translation>
    </message>
    <message>
        <source>1 draft waits</source>
        <translation>1 Entwurf wartet</translation>
    </message>
    <message>
        <source>%1 drafts wait</source>
        <translation>%1 Entwürfe warten</translation>
    </message>
    <message>
        <source>No time is unbilled</source>
        <translation>Alle Zeit ist abgerechnet</translation>
    </message>
    <message>
        <source>%1 hours</source>
        <translation>%1 Stunden</translation>
    </message>
    <message>
        <source>Unbilled Time</source>
        <translation>Offene Zeit</translation>
    </message>
    <message>
        <source>%1 so far in %2, %3 in %4</source>
        <translation>%2 bisher %1, %4 waren es %3</translation>
    </message>
    <message>
        <source>Not due</source>
        <translation>Künftig</translation>
    </message>
    <message>
        <source>1–30</source>
        <translation>1–30</translation>
    </message>
    <message>
        <source>31–60</source>
        <translation>31–60</translation>
    </message>
    <message>
        <source>61–90</source>
        <translation>61–90</translation>
    </message>
    <message>
        <source>Over 90</source>
        <translation>Über 90</translation>
    </message>
    <message>
        <source>Not due yet</source>
        <translation>Noch nicht fällig</translation>
    </message>
    <message>
        <source>%1 is owed to you, by days overdue</source>
        <translation>%1 offen, nach Tagen seit Fälligkeit</translation>
    </message>
    <message>
        <source>The figures could not be read. %1</source>
        <translation>Die Zahlen konnten nicht gelesen werden. %1</translation>
    </message>
</context>
<context>
    <name>Quillary::PaperView</name>
    <message>
        <source>The document&apos;s page</source>
        <translation>Seite des Belegs</translation>
    </message>
</context>
<context>
    <name>Quillary::PaymentSheet</name>
    <message>
        <source>Record Payment</source>
        <translation>Zahlung erfassen</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Erfassen</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>Received on</source>
        <translation>Eingegangen am</translation>
    </message>
    <message>
        <source>By</source>
        <translation>Zahlungsart</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>%1: %2 is due.</source>
        <translation>%1: %2 sind offen.</translation>
    </message>
    <message>
        <source>The invoice isn&apos;t there any more.</source>
        <translation>Die Rechnung gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>Write the amount as a number such as %1.</source>
        <translation>Den Betrag als Zahl wie %1 eingeben.</translation>
    </message>
</context>
<context>
    <name>Quillary::PresetButton</name>
    <message>
        <source>Texts</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>Your saved texts</source>
        <translation>Gespeicherte Texte</translation>
    </message>
    <message>
        <source>Saved introductions</source>
        <translation>Gespeicherte Einleitungen</translation>
    </message>
    <message>
        <source>Saved closing texts</source>
        <translation>Gespeicherte Schlusstexte</translation>
    </message>
    <message>
        <source>Keep This Text</source>
        <translation>Diesen Text speichern</translation>
    </message>
    <message>
        <source>Keep Text</source>
        <translation>Text speichern</translation>
    </message>
</context>
<context>
    <name>Quillary::ProgramPage</name>
    <message>
        <source>Closing the window leaves Quillary in the tray</source>
        <translation>Nach dem Schließen des Fensters im Infobereich weiterlaufen</translation>
    </message>
    <message>
        <source>This desktop has no tray now, so closing the window ends Quillary.</source>
        <translation>Diese Oberfläche hat gerade keinen Infobereich, deshalb beendet das Schließen des Fensters Quillary.</translation>
    </message>
    <message>
        <source>Show notices of the desktop</source>
        <translation>Benachrichtigungen anzeigen</translation>
    </message>
    <message>
        <source>There it goes on serving assistants and making recurring invoices.</source>
        <translation>Dort bedient es weiter Assistenten und erstellt wiederkehrende Rechnungen.</translation>
    </message>
    <message>
        <source>Of invoices that are due today or overdue since the last notice, and of recurring invoices that were made. None while Quillary is locked.</source>
        <translation>Über Rechnungen, die heute fällig oder seit der letzten Benachrichtigung überfällig sind, und über erstellte wiederkehrende Rechnungen. Keine, solange Quillary gesperrt ist.</translation>
    </message>
</context>
<context>
    <name>Quillary::ProjectBox</name>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
</context>
<context>
    <name>Quillary::QuickOpen</name>
    <message>
        <source>Quick open</source>
        <translation>Schnell öffnen</translation>
    </message>
    <message>
        <source>A number, a client, a title</source>
        <translation>Nummer, Kunde oder Titel</translation>
    </message>
    <message>
        <source>What to open</source>
        <translation>Was geöffnet werden soll</translation>
    </message>
    <message>
        <source>%1   %2   %3   %4</source>
        <translation>%1   %2   %3   %4</translation>
    </message>
    <message>
        <source>No client</source>
        <translation>Ohne Kunde</translation>
    </message>
    <message>
        <source>%1   %2</source>
        <translation>%1   %2</translation>
    </message>
</context>
<context>
    <name>Quillary::QuietNotice</name>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
</context>
<context>
    <name>Quillary::RecordListModel</name>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>Usual</source>
        <translation>Üblich</translation>
    </message>
</context>
<context>
    <name>Quillary::RecordPanel</name>
    <message>
        <source>Find in this list</source>
        <translation>In dieser Liste suchen</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
</context>
<context>
    <name>Quillary::RecurringCommands</name>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>Schedule and Client…</source>
        <translation>Termine und Kunde…</translation>
    </message>
    <message>
        <source>Make Now</source>
        <translation>Jetzt erstellen</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Delete…</source>
        <translation>Löschen…</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>%1 was changed.</source>
        <translation>%1 wurde geändert.</translation>
    </message>
    <message>
        <source>The invoice was made.</source>
        <translation>Die Rechnung wurde erstellt.</translation>
    </message>
    <message>
        <source>%1 invoices were made.</source>
        <translation>%1 Rechnungen wurden erstellt.</translation>
    </message>
    <message>
        <source>Resume Recurring Invoice</source>
        <translation>Wiederkehrende Rechnung fortsetzen</translation>
    </message>
    <message>
        <source>Pause Recurring Invoice</source>
        <translation>Wiederkehrende Rechnung anhalten</translation>
    </message>
    <message>
        <source>%1 is paused.</source>
        <translation>%1 ist angehalten.</translation>
    </message>
    <message>
        <source>%1 goes on.</source>
        <translation>%1 geht weiter.</translation>
    </message>
    <message>
        <source>%1 goes on; one date that passed is skipped.</source>
        <translation>%1 geht weiter; ein verstrichener Termin wird übersprungen.</translation>
    </message>
    <message>
        <source>%1 goes on; %2 dates that passed are skipped.</source>
        <translation>%1 geht weiter; %2 verstrichene Termine werden übersprungen.</translation>
    </message>
    <message>
        <source>A copy was made. It is paused until you resume it.</source>
        <translation>Eine Kopie wurde angelegt. Sie ist angehalten, bis sie fortgesetzt wird.</translation>
    </message>
    <message>
        <source>Delete Recurring Invoice</source>
        <translation>Wiederkehrende Rechnung löschen</translation>
    </message>
    <message>
        <source>Delete %1?</source>
        <translation>%1 löschen?</translation>
    </message>
    <message>
        <source>The invoices that were made from it stay. Undo brings it back.</source>
        <translation>Die daraus entstandenen Rechnungen bleiben. „Rückgängig“ holt die wiederkehrende zurück.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>%1 was deleted.</source>
        <translation>%1 wurde gelöscht.</translation>
    </message>
</context>
<context>
    <name>Quillary::RecurringForm</name>
    <message>
        <source>Mark its invoices as sent at once</source>
        <translation>Rechnungen gleich als verschickt markieren</translation>
    </message>
    <message>
        <source>Not stated</source>
        <translation>Nicht angegeben</translation>
    </message>
    <message>
        <source>The period that begins with its date</source>
        <translation>Der Zeitraum, der mit ihrem Datum beginnt</translation>
    </message>
    <message>
        <source>The period before its date</source>
        <translation>Der Zeitraum vor ihrem Datum</translation>
    </message>
    <message>
        <source>Service period</source>
        <translation>Leistungszeitraum</translation>
    </message>
    <message>
        <source>{month_year}, {quarter_year}, {year} and {period} become those of each invoice.</source>
        <translation>{month_year}, {quarter_year}, {year} und {period} werden zu denen jeder Rechnung.</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>Kunde</translation>
    </message>
    <message>
        <source>Every how many</source>
        <translation>Alle wie viele</translation>
    </message>
    <message>
        <source>Weeks, months, quarters or years</source>
        <translation>Wochen, Monate, Quartale oder Jahre</translation>
    </message>
    <message>
        <source>weeks</source>
        <translation>Wochen</translation>
    </message>
    <message>
        <source>months</source>
        <translation>Monate</translation>
    </message>
    <message>
        <source>quarters</source>
        <translation>Quartale</translation>
    </message>
    <message>
        <source>years</source>
        <translation>Jahre</translation>
    </message>
    <message>
        <source>A shorter month uses its last day.</source>
        <translation>In einem kürzeren Monat ist es der letzte Tag.</translation>
    </message>
    <message>
        <source>Every</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Day of the month</source>
        <translation>Tag des Monats</translation>
    </message>
    <message>
        <source>Next invoice</source>
        <translation>Nächste Rechnung</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>After a number of invoices</source>
        <translation>Nach einer Anzahl Rechnungen</translation>
    </message>
    <message>
        <source>On a date</source>
        <translation>An einem Datum</translation>
    </message>
    <message>
        <source>Ends</source>
        <translation>Endet</translation>
    </message>
    <message>
        <source>Invoices in all</source>
        <translation>Rechnungen insgesamt</translation>
    </message>
    <message>
        <source>Last day</source>
        <translation>Letzter Tag</translation>
    </message>
    <message>
        <source>%1: no more invoices are made.</source>
        <translation>%1: Es entstehen keine Rechnungen mehr.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>Quillary::RecurringModel</name>
    <message>
        <source>No title</source>
        <translation>Ohne Titel</translation>
    </message>
    <message>
        <source>No client</source>
        <translation>Ohne Kunde</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>Kunde</translation>
    </message>
    <message>
        <source>Rhythm</source>
        <translation>Rhythmus</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Nächste</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Can&apos;t be made</source>
        <translation>Steht still</translation>
    </message>
</context>
<context>
    <name>Quillary::RecurringPane</name>
    <message>
        <source>Recurring invoice</source>
        <translation>Wiederkehrende Rechnung</translation>
    </message>
    <message>
        <source>%1 · %2</source>
        <translation>%1 · %2</translation>
    </message>
    <message>
        <source>Next: %1</source>
        <translation>Als Nächstes: %1</translation>
    </message>
    <message>
        <source>Paused: no invoice is made. Dates that pass meanwhile are skipped.</source>
        <translation>Angehalten: Es wird keine Rechnung erstellt. Termine, die inzwischen verstreichen, werden übersprungen.</translation>
    </message>
    <message>
        <source>Ended: no more invoices are made.</source>
        <translation>Beendet: Es werden keine Rechnungen mehr erstellt.</translation>
    </message>
    <message>
        <source>The invoice of %1 is due and not made yet.</source>
        <translation>Die Rechnung vom %1 ist fällig und noch nicht erstellt.</translation>
    </message>
    <message>
        <source>Schedule…</source>
        <translation>Termine…</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>More actions</source>
        <translation>Weitere Aktionen</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
</context>
<context>
    <name>Quillary::RecurringSection</name>
    <message>
        <source>Recurring Invoices</source>
        <translation>Wiederkehrende Rechnungen</translation>
    </message>
    <message>
        <source>No recurring invoices yet. What you bill again and again can be made by itself.</source>
        <translation>Noch keine wiederkehrenden Rechnungen. Was immer wieder abgerechnet wird, kann von selbst entstehen.</translation>
    </message>
    <message>
        <source>New recurring invoice</source>
        <translation>Neue wiederkehrende Rechnung</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>New Recurring Invoice</source>
        <translation>Neue wiederkehrende Rechnung</translation>
    </message>
    <message>
        <source>A recurring invoice is made of an invoice: write one for its client first.</source>
        <translation>Eine wiederkehrende Rechnung entsteht aus einer Rechnung: zuerst eine für den Kunden schreiben.</translation>
    </message>
    <message>
        <source>The recurring invoice was made.</source>
        <translation>Die wiederkehrende Rechnung wurde angelegt.</translation>
    </message>
</context>
<context>
    <name>Quillary::RelatedDocuments</name>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Credits %1</source>
        <translation>Gutschrift zu %1</translation>
    </message>
    <message>
        <source>From %1</source>
        <translation>Aus %1</translation>
    </message>
    <message>
        <source>Led to %1</source>
        <translation>Daraus entstanden: %1</translation>
    </message>
</context>
<context>
    <name>Quillary::ReminderSheet</name>
    <message>
        <source>Send Reminder</source>
        <translation>Mahnen</translation>
    </message>
    <message>
        <source>The reminder is recorded; its letter is %1</source>
        <translation>Die Mahnung ist erfasst; ihr Schreiben ist %1</translation>
    </message>
    <message>
        <source>Write Letter</source>
        <translation>Schreiben erstellen</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Stufe</translation>
    </message>
    <message>
        <source>Late fee</source>
        <translation>Mahngebühr</translation>
    </message>
    <message>
        <source>To be paid by</source>
        <translation>Zu zahlen bis</translation>
    </message>
    <message>
        <source>The letter for %1 is saved as a PDF in your downloads. Nothing is sent by itself.</source>
        <translation>Das Schreiben zu %1 wird als PDF bei den Downloads gespeichert. Verschickt wird nichts von selbst.</translation>
    </message>
    <message>
        <source>The invoice isn&apos;t there any more.</source>
        <translation>Die Rechnung gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>Write the fee as a number such as %1, or 0 for none.</source>
        <translation>Die Gebühr als Zahl wie %1 eingeben, oder 0 für keine.</translation>
    </message>
    <message>
        <source>Prepare an email with the letter</source>
        <translation>Eine E-Mail mit dem Brief vorbereiten</translation>
    </message>
    <message>
        <source>Addresses, with commas between them</source>
        <translation>Adressen, mit Kommas dazwischen</translation>
    </message>
    <message>
        <source>To</source>
        <translation>An</translation>
    </message>
    <message>
        <source>%1. %2</source>
        <translation>%1. %2</translation>
    </message>
</context>
<context>
    <name>Quillary::RemindersModel</name>
    <message>
        <source>No client</source>
        <translation>Ohne Kunde</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Invoice</source>
        <translation>Rechnung</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>Kunde</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Offen</translation>
    </message>
    <message>
        <source>Letter</source>
        <translation>Schreiben</translation>
    </message>
    <message>
        <source>Late fee</source>
        <translation>Mahngebühr</translation>
    </message>
    <message>
        <source>Pay by</source>
        <translation>Zahlbar bis</translation>
    </message>
</context>
<context>
    <name>Quillary::RemindersSheet</name>
    <message>
        <source>Send Reminders</source>
        <translation>Mahnen</translation>
    </message>
    <message>
        <source>Reminders</source>
        <translation>Mahnungen</translation>
    </message>
    <message>
        <source>The letter</source>
        <translation>Das Schreiben</translation>
    </message>
    <message>
        <source>The letters are saved as PDFs in your downloads and recorded with their fees. Nothing is sent by itself.</source>
        <translation>Die Schreiben werden als PDF bei den Downloads gespeichert und mit ihren Gebühren erfasst. Verschickt wird nichts von selbst.</translation>
    </message>
    <message>
        <source>One of them can&apos;t be reminded of and is left out.</source>
        <translation>Eine davon kann nicht gemahnt werden und wird ausgelassen.</translation>
    </message>
    <message>
        <source>%1 of them can&apos;t be reminded of and are left out.</source>
        <translation>%1 davon können nicht gemahnt werden und werden ausgelassen.</translation>
    </message>
    <message>
        <source>Write 1 Letter</source>
        <translation>1 Schreiben erstellen</translation>
    </message>
    <message>
        <source>Write %1 Letters</source>
        <translation>%1 Schreiben erstellen</translation>
    </message>
    <message>
        <source>Prepare an email with each letter, to the client&apos;s own address</source>
        <translation>Zu jedem Brief eine E-Mail an die Adresse des Kunden vorbereiten</translation>
    </message>
</context>
<context>
    <name>Quillary::ReportPicker</name>
    <message>
        <source>Report</source>
        <translation>Bericht</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>Steuer</translation>
    </message>
    <message>
        <source>Tax, by Document</source>
        <translation>Steuer, nach Beleg</translation>
    </message>
    <message>
        <source>Receivables by Age</source>
        <translation>Forderungen nach Alter</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>Kunden</translation>
    </message>
    <message>
        <source>Invoices and Credit Notes</source>
        <translation>Rechnungen und Gutschriften</translation>
    </message>
    <message>
        <source>By which dates</source>
        <translation>Nach welchem Datum</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>Zeitraum</translation>
    </message>
    <message>
        <source>This month</source>
        <translation>Dieser Monat</translation>
    </message>
    <message>
        <source>Last month</source>
        <translation>Letzter Monat</translation>
    </message>
    <message>
        <source>This quarter</source>
        <translation>Dieses Quartal</translation>
    </message>
    <message>
        <source>Last quarter</source>
        <translation>Letztes Quartal</translation>
    </message>
    <message>
        <source>This year</source>
        <translation>Dieses Jahr</translation>
    </message>
    <message>
        <source>Last year</source>
        <translation>Letztes Jahr</translation>
    </message>
    <message>
        <source>Last twelve months</source>
        <translation>Letzte zwölf Monate</translation>
    </message>
    <message>
        <source>All dates</source>
        <translation>Alle Daten</translation>
    </message>
    <message>
        <source>From – to</source>
        <translation>Von – bis</translation>
    </message>
    <message>
        <source>First day</source>
        <translation>Erster Tag</translation>
    </message>
    <message>
        <source>Last day</source>
        <translation>Letzter Tag</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
</context>
<context>
    <name>Quillary::ReportsSection</name>
    <message>
        <source>Report</source>
        <translation>Bericht</translation>
    </message>
    <message>
        <source>The report could not be read. %1</source>
        <translation>Der Bericht konnte nicht gelesen werden. %1</translation>
    </message>
    <message>
        <source>The last day lies before the first. Choose a later one.</source>
        <translation>Der letzte Tag liegt vor dem ersten. Bitte einen späteren wählen.</translation>
    </message>
    <message>
        <source>Nothing is owed to you.</source>
        <translation>Keine offenen Forderungen.</translation>
    </message>
    <message>
        <source>There is nothing in this period.</source>
        <translation>In diesem Zeitraum gibt es nichts.</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Gespeichert als %1</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Drucken…</translation>
    </message>
    <message>
        <source>Chart of the report</source>
        <translation>Diagramm des Berichts</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>Als PDF speichern</translation>
    </message>
    <message>
        <source>Save as CSV: Standard (Commas and Points)</source>
        <translation>Als CSV speichern: Standard (Kommas und Punkte)</translation>
    </message>
    <message>
        <source>Save as CSV: For the Spreadsheet Program on This Machine</source>
        <translation>Als CSV speichern: für die Tabellenkalkulation auf diesem Rechner</translation>
    </message>
    <message>
        <source>Reading the report…</source>
        <translation>Der Bericht wird gelesen…</translation>
    </message>
    <message>
        <source>Read Again</source>
        <translation>Noch einmal lesen</translation>
    </message>
    <message>
        <source>The report was not read to its end.</source>
        <translation>Der Bericht wurde nicht zu Ende gelesen.</translation>
    </message>
</context>
<context>
    <name>Quillary::ReviewPanel</name>
    <message>
        <source>Someone new…</source>
        <translation>Jemand Neues…</translation>
    </message>
    <message>
        <source> (in the settings)</source>
        <translation> (in den Einstellungen)</translation>
    </message>
    <message>
        <source> (with the client)</source>
        <translation> (beim Kunden)</translation>
    </message>
    <message>
        <source>Nothing is missing.</source>
        <translation>Es fehlt nichts.</translation>
    </message>
    <message>
        <source>&lt;b&gt;What&apos;s missing&lt;/b&gt;&lt;ul&gt;%1&lt;/ul&gt;</source>
        <translation>&lt;b&gt;Was noch fehlt&lt;/b&gt;&lt;ul&gt;%1&lt;/ul&gt;</translation>
    </message>
    <message>
        <source>Answer</source>
        <translation>Antworten</translation>
    </message>
</context>
<context>
    <name>Quillary::RunningTimer</name>
    <message>
        <source>Timer</source>
        <translation>Stoppuhr</translation>
    </message>
    <message>
        <source>Time on the timer</source>
        <translation>Zeit auf der Stoppuhr</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Stop the timer</source>
        <translation>Stoppuhr anhalten</translation>
    </message>
</context>
<context>
    <name>Quillary::SavedViewsButton</name>
    <message>
        <source>Views</source>
        <translation>Ansichten</translation>
    </message>
    <message>
        <source>Saved views</source>
        <translation>Gespeicherte Ansichten</translation>
    </message>
    <message>
        <source>No view is kept yet</source>
        <translation>Noch keine Ansicht gespeichert</translation>
    </message>
    <message>
        <source>Keep This View…</source>
        <translation>Diese Ansicht speichern…</translation>
    </message>
    <message>
        <source>Keep View</source>
        <translation>Ansicht speichern</translation>
    </message>
    <message>
        <source>Save Changes to “%1”</source>
        <translation>Änderungen an „%1“ speichern</translation>
    </message>
    <message>
        <source>Change View</source>
        <translation>Ansicht ändern</translation>
    </message>
    <message>
        <source>Rename “%1”…</source>
        <translation>„%1“ umbenennen…</translation>
    </message>
    <message>
        <source>Rename View</source>
        <translation>Ansicht umbenennen</translation>
    </message>
    <message>
        <source>Delete “%1”</source>
        <translation>„%1“ löschen</translation>
    </message>
    <message>
        <source>Delete View</source>
        <translation>Ansicht löschen</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Move View</source>
        <translation>Ansicht verschieben</translation>
    </message>
    <message>
        <source>Move “%1” Up</source>
        <translation>„%1“ nach oben</translation>
    </message>
    <message>
        <source>Move “%1” Down</source>
        <translation>„%1“ nach unten</translation>
    </message>
</context>
<context>
    <name>Quillary::ScheduleSheet</name>
    <message>
        <source>Schedule and Client</source>
        <translation>Termine und Kunde</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>For the invoices to come; those that were made stay as they are. Another rhythm or day begins with the next invoice.</source>
        <translation>Für die kommenden Rechnungen; die vorhandenen bleiben, wie sie sind. Ein anderer Rhythmus oder Tag gilt ab der nächsten Rechnung.</translation>
    </message>
    <message>
        <source>The recurring invoice isn&apos;t there any more.</source>
        <translation>Die wiederkehrende Rechnung gibt es nicht mehr.</translation>
    </message>
</context>
<context>
    <name>Quillary::SectionDeck</name>
    <message>
        <source>Sections</source>
        <translation>Bereiche</translation>
    </message>
</context>
<context>
    <name>Quillary::SecurityPage</name>
    <message>
        <source>Only when I lock it</source>
        <translation>Nur auf Wunsch</translation>
    </message>
    <message>
        <source>After a minute without input</source>
        <translation>Nach einer Minute ohne Eingabe</translation>
    </message>
    <message>
        <source>After %1 minutes without input</source>
        <translation>Nach %1 Minuten ohne Eingabe</translation>
    </message>
    <message>
        <source>Remove Passphrase</source>
        <translation>Passwort entfernen</translation>
    </message>
    <message>
        <source>Passphrase until now</source>
        <translation>Bisheriges Passwort</translation>
    </message>
    <message>
        <source>New passphrase</source>
        <translation>Neues Passwort</translation>
    </message>
    <message>
        <source>The new one again</source>
        <translation>Das neue noch einmal</translation>
    </message>
    <message>
        <source>Lock by itself</source>
        <translation>Von selbst sperren</translation>
    </message>
    <message>
        <source>The lock hides the window and stops assistants. It encrypts nothing: whoever may use this account of the computer can read the library&apos;s files with other programs, and Quillary&apos;s commands in a terminal go on working.</source>
        <translation>Die Sperre verbirgt das Fenster und hält Assistenten an. Sie verschlüsselt nichts: Wer dieses Benutzerkonto verwenden kann, kann die Dateien der Bibliothek mit anderen Programmen lesen, und Quillarys Befehle im Terminal funktionieren weiter.</translation>
    </message>
    <message>
        <source>Change Passphrase</source>
        <translation>Passwort ändern</translation>
    </message>
    <message>
        <source>Set Passphrase</source>
        <translation>Passwort festlegen</translation>
    </message>
    <message>
        <source>A passphrase can&apos;t be read back. Who has forgotten it deletes the file %1 and presses Unlock; the library stays as it is.</source>
        <translation>Ein Passwort lässt sich nicht wieder auslesen. Wer es vergessen hat, löscht die Datei %1 und wählt „Entsperren“; die Bibliothek bleibt, wie sie ist.</translation>
    </message>
    <message>
        <source>The new passphrase was typed in two ways. Type it again.</source>
        <translation>Das neue Passwort wurde zweimal verschieden eingegeben. Bitte noch einmal eingeben.</translation>
    </message>
    <message>
        <source>The passphrase is set. Ctrl+L locks.</source>
        <translation>Das Passwort ist festgelegt. Strg+L sperrt.</translation>
    </message>
    <message>
        <source>There is no passphrase any more.</source>
        <translation>Es gibt kein Passwort mehr.</translation>
    </message>
</context>
<context>
    <name>Quillary::SelectionPane</name>
    <message>
        <source>Save PDFs In</source>
        <translation>PDFs speichern in</translation>
    </message>
    <message>
        <source>%1 quotes</source>
        <translation>%1 Angebote</translation>
    </message>
    <message>
        <source>%1 credit notes</source>
        <translation>%1 Gutschriften</translation>
    </message>
    <message>
        <source>%1 invoices</source>
        <translation>%1 Rechnungen</translation>
    </message>
    <message>
        <source>It isn&apos;t there any more.</source>
        <translation>Er ist nicht mehr da.</translation>
    </message>
    <message>
        <source>Send Reminders…</source>
        <translation>Mahnen…</translation>
    </message>
    <message>
        <source>Save as PDFs…</source>
        <translation>Als PDFs speichern…</translation>
    </message>
    <message>
        <source>Delete Drafts…</source>
        <translation>Entwürfe löschen…</translation>
    </message>
    <message>
        <source>%1 in total</source>
        <translation>%1 insgesamt</translation>
    </message>
    <message>
        <source>%1 open</source>
        <translation>%1 offen</translation>
    </message>
    <message>
        <source>One client</source>
        <translation>Ein Kunde</translation>
    </message>
    <message>
        <source>%1 clients</source>
        <translation>%1 Kunden</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>Valid until %1</source>
        <translation>Gültig bis %1</translation>
    </message>
    <message>
        <source>Due %1</source>
        <translation>Fällig %1</translation>
    </message>
    <message>
        <source>%1: 1 document.</source>
        <translation>%1: 1 Beleg.</translation>
    </message>
    <message>
        <source>%1: %2 documents.</source>
        <translation>%1: %2 Belege.</translation>
    </message>
    <message>
        <source>Saving PDFs</source>
        <translation>PDFs werden gespeichert</translation>
    </message>
    <message>
        <source>1 PDF was saved in %1.</source>
        <translation>1 PDF wurde in %1 gespeichert.</translation>
    </message>
    <message>
        <source>%1 PDFs were saved in %2.</source>
        <translation>%1 PDFs wurden in %2 gespeichert.</translation>
    </message>
    <message>
        <source>Writing reminders</source>
        <translation>Mahnungen werden geschrieben</translation>
    </message>
    <message>
        <source>1 reminder is recorded; its letter lies in %1.</source>
        <translation>1 Mahnung ist erfasst; ihr Schreiben liegt in %1.</translation>
    </message>
    <message>
        <source>%1 reminders are recorded; the letters lie in %2.</source>
        <translation>%1 Mahnungen sind erfasst; die Schreiben liegen in %2.</translation>
    </message>
    <message>
        <source>Delete Drafts</source>
        <translation>Entwürfe löschen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete %1? Time that they billed becomes free again. Undo brings them back.</source>
        <translation>%1 löschen? Darin abgerechnete Zeit wird wieder frei. „Rückgängig“ holt sie zurück.</translation>
    </message>
    <message>
        <source>Deleting drafts</source>
        <translation>Entwürfe werden gelöscht</translation>
    </message>
    <message>
        <source>1 draft was deleted.</source>
        <translation>1 Entwurf wurde gelöscht.</translation>
    </message>
    <message>
        <source>%1 drafts were deleted.</source>
        <translation>%1 Entwürfe wurden gelöscht.</translation>
    </message>
</context>
<context>
    <name>Quillary::SettingsSection</name>
    <message>
        <source>Groups of settings</source>
        <translation>Gruppen der Einstellungen</translation>
    </message>
    <message>
        <source>Logo</source>
        <translation>Logo</translation>
    </message>
    <message>
        <source>AI Assistants</source>
        <translation>KI-Assistenten</translation>
    </message>
    <message>
        <source>Assistants on this machine can look at your library and prepare documents for you, as far as you allow.</source>
        <translation>Assistenten auf diesem Rechner können die Bibliothek ansehen und Belege vorbereiten, soweit es hier erlaubt ist.</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Where everything is kept, and its copies.</source>
        <translation>Wo alles liegt, und die Sicherungen davon.</translation>
    </message>
    <message>
        <source>Change Settings</source>
        <translation>Einstellungen ändern</translation>
    </message>
    <message>
        <source>Security</source>
        <translation>Sicherheit</translation>
    </message>
    <message>
        <source>A passphrase that the window asks for when it was locked and when Quillary starts.</source>
        <translation>Ein Passwort, nach dem das Fenster fragt, wenn es gesperrt war und wenn Quillary startet.</translation>
    </message>
    <message>
        <source>This Computer</source>
        <translation>Dieser Rechner</translation>
    </message>
    <message>
        <source>How Quillary behaves here; your library doesn&apos;t change.</source>
        <translation>Wie sich Quillary hier verhält; die Bibliothek ändert sich nicht.</translation>
    </message>
    <message>
        <source>Emails</source>
        <translation>E-Mails</translation>
    </message>
    <message>
        <source>What an email begins with when it is prepared. Nothing is ever sent by itself.</source>
        <translation>Womit eine E-Mail beginnt, wenn sie vorbereitet wird. Von selbst wird nie etwas verschickt.</translation>
    </message>
</context>
<context>
    <name>Quillary::Sheet</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>Quillary::TimeInvoiceSheet</name>
    <message>
        <source>Invoice Time</source>
        <translation>Zeit abrechnen</translation>
    </message>
    <message>
        <source>Make Draft</source>
        <translation>Entwurf erstellen</translation>
    </message>
    <message>
        <source>All projects</source>
        <translation>Alle Projekte</translation>
    </message>
    <message>
        <source>Not rounded</source>
        <translation>Nicht gerundet</translation>
    </message>
    <message>
        <source>Up to %1 minutes</source>
        <translation>Auf %1 Minuten</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>Kunde</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Positionen</translation>
    </message>
    <message>
        <source>Each entry</source>
        <translation>Jeder Eintrag</translation>
    </message>
    <message>
        <source>Whose time is to be billed?</source>
        <translation>Wessen Zeit soll abgerechnet werden?</translation>
    </message>
    <message>
        <source>Nothing of this client&apos;s time is unbilled.</source>
        <translation>Alle Zeit für diesen Kunden ist abgerechnet.</translation>
    </message>
    <message>
        <source>%1 hours are unbilled, worth %2.</source>
        <translation>%1 Stunden im Wert von %2 sind noch nicht abgerechnet.</translation>
    </message>
    <message>
        <source>No hourly rate is set, so the hours cost nothing.</source>
        <translation>Es ist kein Stundensatz festgelegt, die Stunden kosten also nichts.</translation>
    </message>
    <message>
        <source>What the timer counts is not billed before it is stopped.</source>
        <translation>Was die Stoppuhr zählt, wird erst abgerechnet, wenn sie steht.</translation>
    </message>
    <message>
        <source>Choose the client whose time is to be billed.</source>
        <translation>Bitte den Kunden wählen, dessen Zeit abgerechnet werden soll.</translation>
    </message>
</context>
<context>
    <name>Quillary::TimeModel</name>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Gestern</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>Kunde</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Hours</source>
        <translation>Stunden</translation>
    </message>
    <message>
        <source>Billed</source>
        <translation>Abgerechnet</translation>
    </message>
</context>
<context>
    <name>Quillary::TimeSection</name>
    <message>
        <source>Change…</source>
        <translation>Ändern…</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Days and their working time</source>
        <translation>Tage und ihre Arbeitszeit</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>Zeitraum</translation>
    </message>
    <message>
        <source>Last thirty days</source>
        <translation>Letzte dreißig Tage</translation>
    </message>
    <message>
        <source>Last twelve months</source>
        <translation>Letzte zwölf Monate</translation>
    </message>
    <message>
        <source>Any time</source>
        <translation>Jederzeit</translation>
    </message>
    <message>
        <source>Add Time…</source>
        <translation>Zeit eintragen…</translation>
    </message>
    <message>
        <source>Invoice Time…</source>
        <translation>Zeit abrechnen…</translation>
    </message>
    <message>
        <source>No time in this period. Start the timer, or add what you have worked already.</source>
        <translation>Keine Zeiten in diesem Zeitraum. Die Stoppuhr starten oder schon geleistete Arbeit eintragen.</translation>
    </message>
    <message>
        <source>The time was recorded.</source>
        <translation>Die Zeit wurde erfasst.</translation>
    </message>
    <message>
        <source>This time is on an invoice, so it stays as it is. Take its line off the draft first.</source>
        <translation>Diese Zeit steht auf einer Rechnung und bleibt deshalb, wie sie ist. Zuerst ihre Position aus dem Entwurf nehmen.</translation>
    </message>
    <message>
        <source>Delete Time</source>
        <translation>Zeit löschen</translation>
    </message>
    <message>
        <source>The entry was deleted. Undo brings it back.</source>
        <translation>Der Eintrag wurde gelöscht. „Rückgängig“ holt ihn zurück.</translation>
    </message>
    <message>
        <source>The time was billed on a draft.</source>
        <translation>Die Zeit wurde in einem Entwurf abgerechnet.</translation>
    </message>
</context>
<context>
    <name>Quillary::TimeSheet</name>
    <message>
        <source>Add Time</source>
        <translation>Zeit eintragen</translation>
    </message>
    <message>
        <source>Change Time</source>
        <translation>Zeit ändern</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Eintragen</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>Kein Projekt</translation>
    </message>
    <message>
        <source>Will be billed</source>
        <translation>Wird abgerechnet</translation>
    </message>
    <message>
        <source>9:00–10:30, or how long: 1:30</source>
        <translation>9:00–10:30, oder wie lange: 1:30</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Tag</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>Kunde</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Another entry counts some of the same time.</source>
        <translation>Ein anderer Eintrag zählt zum Teil dieselbe Zeit.</translation>
    </message>
    <message>
        <source>%1 other entries count some of the same time.</source>
        <translation>%1 andere Einträge zählen zum Teil dieselbe Zeit.</translation>
    </message>
</context>
<context>
    <name>Quillary::TimerBar</name>
    <message>
        <source>No project</source>
        <translation>Kein Projekt</translation>
    </message>
    <message>
        <source>Nobody is called that. A new client is made in Clients.</source>
        <translation>Einen Kunden dieses Namens gibt es nicht. Neue Kunden werden unter „Kunden“ angelegt.</translation>
    </message>
    <message>
        <source>Time on the timer</source>
        <translation>Zeit auf der Stoppuhr</translation>
    </message>
    <message>
        <source>What is worked at</source>
        <translation>Woran gearbeitet wird</translation>
    </message>
    <message>
        <source>What are you working on?</source>
        <translation>Woran wird gearbeitet?</translation>
    </message>
    <message>
        <source>Client</source>
        <translation>Kunde</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Starten</translation>
    </message>
    <message>
        <source>Start Timer</source>
        <translation>Stoppuhr starten</translation>
    </message>
    <message>
        <source>Change Timer</source>
        <translation>Stoppuhr ändern</translation>
    </message>
</context>
<context>
    <name>Quillary::TrayIcon</name>
    <message>
        <source>Open Quillary</source>
        <translation>Quillary öffnen</translation>
    </message>
    <message>
        <source>Lock</source>
        <translation>Sperren</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>Quillary::WaitingWord</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>RecordTexts</name>
    <message>
        <source>Items</source>
        <translation>Artikel</translation>
    </message>
    <message>
        <source>Name or text</source>
        <translation>Name oder Text</translation>
    </message>
    <message>
        <source>No items yet. What you sell again and again is a few letters away in every document then.</source>
        <translation>Noch keine Artikel. Was immer wieder verkauft wird, steht dann in jedem Beleg nach wenigen Buchstaben bereit.</translation>
    </message>
    <message>
        <source>New Item</source>
        <translation>Neuer Artikel</translation>
    </message>
    <message>
        <source>Change Item</source>
        <translation>Artikel ändern</translation>
    </message>
    <message>
        <source>Remove Item</source>
        <translation>Artikel entfernen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Price, net</source>
        <translation>Preis, netto</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Such as hour or piece</source>
        <translation>Zum Beispiel Stunde oder Stück</translation>
    </message>
    <message>
        <source>Tax rate</source>
        <translation>Steuersatz</translation>
    </message>
    <message>
        <source>The usual one</source>
        <translation>Der übliche</translation>
    </message>
    <message>
        <source>Text below the name</source>
        <translation>Text unter dem Namen</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>Projekte</translation>
    </message>
    <message>
        <source>No projects yet. They keep the documents and the time of one piece of work together.</source>
        <translation>Noch keine Projekte. Sie halten die Belege und die Zeiten eines Auftrags zusammen.</translation>
    </message>
    <message>
        <source>New Project</source>
        <translation>Neues Projekt</translation>
    </message>
    <message>
        <source>Change Project</source>
        <translation>Projekt ändern</translation>
    </message>
    <message>
        <source>Remove Project</source>
        <translation>Projekt entfernen</translation>
    </message>
    <message>
        <source>Done: takes no more documents and time</source>
        <translation>Abgeschlossen: nimmt keine Belege und Zeiten mehr auf</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Einheiten</translation>
    </message>
    <message>
        <source>No units of your own. Hour, day, piece and many others are there anyway.</source>
        <translation>Keine eigenen Einheiten. Stunde, Tag, Stück und viele andere sind ohnehin da.</translation>
    </message>
    <message>
        <source>New Unit</source>
        <translation>Neue Einheit</translation>
    </message>
    <message>
        <source>Change Unit</source>
        <translation>Einheit ändern</translation>
    </message>
    <message>
        <source>Remove Unit</source>
        <translation>Einheit entfernen</translation>
    </message>
    <message>
        <source>Word for one</source>
        <translation>Einzahl</translation>
    </message>
    <message>
        <source>Word for several</source>
        <translation>Mehrzahl</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Kürzel</translation>
    </message>
    <message>
        <source>UN/ECE Recommendation 20, such as HUR</source>
        <translation>UN/ECE-Empfehlung 20, zum Beispiel HUR</translation>
    </message>
    <message>
        <source>Tax Rates</source>
        <translation>Steuersätze</translation>
    </message>
    <message>
        <source>No tax rates. Lines are without tax until there is one.</source>
        <translation>Keine Steuersätze. Solange es keinen gibt, sind Positionen ohne Steuer.</translation>
    </message>
    <message>
        <source>New Tax Rate</source>
        <translation>Neuer Steuersatz</translation>
    </message>
    <message>
        <source>Change Tax Rate</source>
        <translation>Steuersatz ändern</translation>
    </message>
    <message>
        <source>Remove Tax Rate</source>
        <translation>Steuersatz entfernen</translation>
    </message>
    <message>
        <source>Percent</source>
        <translation>Prozent</translation>
    </message>
    <message>
        <source>New lines take this rate</source>
        <translation>Neue Positionen nehmen diesen Satz</translation>
    </message>
    <message>
        <source>Above the lines</source>
        <translation>Über den Positionen</translation>
    </message>
    <message>
        <source>Below the lines</source>
        <translation>Unter den Positionen</translation>
    </message>
    <message>
        <source>Texts</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>No saved texts. What you write above or below the lines again and again can be kept here.</source>
        <translation>Keine gespeicherten Texte. Was immer wieder über oder unter den Positionen steht, lässt sich hier aufheben.</translation>
    </message>
    <message>
        <source>New Text</source>
        <translation>Neuer Text</translation>
    </message>
    <message>
        <source>Change Text</source>
        <translation>Text ändern</translation>
    </message>
    <message>
        <source>Remove Text</source>
        <translation>Text entfernen</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
</context>
<context>
    <name>ReminderWriting</name>
    <message>
        <source>Send Reminder</source>
        <translation>Mahnen</translation>
    </message>
    <message>
        <source>The invoice isn&apos;t there any more.</source>
        <translation>Die Rechnung gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>The library was closed before the letter was printed.</source>
        <translation>Die Bibliothek wurde geschlossen, bevor das Schreiben gedruckt war.</translation>
    </message>
    <message>
        <source>The reminder is recorded and its letter is %1, but there is no email. %2</source>
        <translation>Die Mahnung ist vermerkt, ihr Brief ist %1, aber es gibt keine E-Mail. %2</translation>
    </message>
</context>
<context>
    <name>ReportBars</name>
    <message>
        <source>Q%1 %2</source>
        <translation>%1. Quartal %2</translation>
    </message>
    <message>
        <source>%1%</source>
        <comment>a tax rate</comment>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Q%1</source>
        <translation>Q%1</translation>
    </message>
</context>
<context>
    <name>ReportPaper</name>
    <message>
        <source>Not in this report: amounts in %1.</source>
        <translation>Nicht in diesem Bericht: Beträge in %1.</translation>
    </message>
    <message>
        <source>en</source>
        <comment>the language code of this translation</comment>
        <translation>de</translation>
    </message>
    <message>
        <source>VAT ID %1</source>
        <translation>USt-IdNr. %1</translation>
    </message>
    <message>
        <source>Tax number %1</source>
        <translation>Steuernummer %1</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>Zeitraum</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Made on</source>
        <translation>Erstellt am</translation>
    </message>
    <message>
        <source>Page {page} of {pages}</source>
        <translation>Seite {page} von {pages}</translation>
    </message>
    <message>
        <source>Tax Report</source>
        <translation>Steuerbericht</translation>
    </message>
    <message>
        <source>Tax Documents</source>
        <translation>Belege des Steuerberichts</translation>
    </message>
    <message>
        <source>Aging Report</source>
        <translation>Forderungen nach Alter</translation>
    </message>
    <message>
        <source>Client Report</source>
        <translation>Kundenbericht</translation>
    </message>
    <message>
        <source>Invoices</source>
        <translation>Rechnungen</translation>
    </message>
    <message>
        <source>%1 %2 to %3</source>
        <comment>the name of a file, with dates such as 2026-01-31</comment>
        <translation>%1 %2 bis %3</translation>
    </message>
</context>
<context>
    <name>RhythmText</name>
    <message>
        <source>%1st</source>
        <translation>%1.</translation>
    </message>
    <message>
        <source>%1nd</source>
        <translation>%1.</translation>
    </message>
    <message>
        <source>%1rd</source>
        <translation>%1.</translation>
    </message>
    <message>
        <source>%1th</source>
        <translation>%1.</translation>
    </message>
    <message>
        <source>Every week</source>
        <translation>Wöchentlich</translation>
    </message>
    <message>
        <source>Every %1 weeks</source>
        <translation>Alle %1 Wochen</translation>
    </message>
    <message>
        <source>Every month on the %1</source>
        <translation>Monatlich am %1</translation>
    </message>
    <message>
        <source>Every %1 months on the %2</source>
        <translation>Alle %1 Monate am %2</translation>
    </message>
    <message>
        <source>Every quarter on the %1</source>
        <translation>Vierteljährlich am %1</translation>
    </message>
    <message>
        <source>Every %1 quarters on the %2</source>
        <translation>Alle %1 Quartale am %2</translation>
    </message>
    <message>
        <source>Every year on the %1</source>
        <translation>Jährlich am %1</translation>
    </message>
    <message>
        <source>Every %1 years on the %2</source>
        <translation>Alle %1 Jahre am %2</translation>
    </message>
    <message>
        <source>A schedule of a newer Quillary</source>
        <translation>Ein Zeitplan aus einem neueren Quillary</translation>
    </message>
    <message>
        <source>%1, %2 of %3 made</source>
        <translation>%1, %2 von %3 erstellt</translation>
    </message>
    <message>
        <source>%1, until %2</source>
        <translation>%1, bis %2</translation>
    </message>
</context>
<context>
    <name>SettingTexts</name>
    <message>
        <source>VAT</source>
        <translation>USt.</translation>
    </message>
    <message>
        <source>GST</source>
        <translation>GST</translation>
    </message>
    <message>
        <source>Sales tax</source>
        <translation>Verkaufssteuer</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>Steuer</translation>
    </message>
    <message>
        <source>Words of your own</source>
        <translation>Eigene Bezeichnung</translation>
    </message>
    <message>
        <source>No late fee</source>
        <translation>Keine Mahngebühr</translation>
    </message>
    <message>
        <source>A fixed amount</source>
        <translation>Ein fester Betrag</translation>
    </message>
    <message>
        <source>A share of what is open</source>
        <translation>Ein Anteil des offenen Betrags</translation>
    </message>
    <message>
        <source>US Letter</source>
        <translation>US Letter</translation>
    </message>
    <message>
        <source>A4</source>
        <translation>A4</translation>
    </message>
    <message>
        <source>As usual</source>
        <translation>Wie üblich</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Street</source>
        <translation>Straße</translation>
    </message>
    <message>
        <source>Postal code</source>
        <translation>Postleitzahl</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Bundesland</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Land</translation>
    </message>
    <message>
        <source>Not given</source>
        <translation>Keine Angabe</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Phone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>Website</source>
        <translation>Website</translation>
    </message>
    <message>
        <source>VAT ID</source>
        <translation>USt-IdNr.</translation>
    </message>
    <message>
        <source>Tax number</source>
        <translation>Steuernummer</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Language of documents</source>
        <translation>Sprache der Belege</translation>
    </message>
    <message>
        <source>Days to pay</source>
        <translation>Zahlungsziel in Tagen</translation>
    </message>
    <message>
        <source>Account holder</source>
        <translation>Kontoinhaber</translation>
    </message>
    <message>
        <source>Bank</source>
        <translation>Bank</translation>
    </message>
    <message>
        <source>IBAN</source>
        <translation>IBAN</translation>
    </message>
    <message>
        <source>BIC</source>
        <translation>BIC</translation>
    </message>
    <message>
        <source>Account number</source>
        <translation>Kontonummer</translation>
    </message>
    <message>
        <source>Bank code</source>
        <translation>Bankleitzahl</translation>
    </message>
    <message>
        <source>UPI ID</source>
        <translation>UPI-ID</translation>
    </message>
    <message>
        <source>name@bank</source>
        <translation>name@bank</translation>
    </message>
    <message>
        <source>Print a QR code for paying</source>
        <translation>QR-Code zum Bezahlen drucken</translation>
    </message>
    <message>
        <source>Design</source>
        <translation>Vorlage</translation>
    </message>
    <message>
        <source>Accent colour</source>
        <translation>Akzentfarbe</translation>
    </message>
    <message>
        <source>#1F4E8C</source>
        <translation>#1F4E8C</translation>
    </message>
    <message>
        <source>Typeface</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>Papier</translation>
    </message>
    <message>
        <source>Place of the logo</source>
        <translation>Position des Logos</translation>
    </message>
    <message>
        <source>Size of the logo</source>
        <translation>Größe des Logos</translation>
    </message>
    <message>
        <source>Print the client number</source>
        <translation>Kundennummer drucken</translation>
    </message>
    <message>
        <source>Print your contact details</source>
        <translation>Eigene Kontaktdaten drucken</translation>
    </message>
    <message>
        <source>Units not offered</source>
        <translation>Ausgeblendete Einheiten</translation>
    </message>
    <message>
        <source>Such as day, kilometre</source>
        <translation>Zum Beispiel Tag, Kilometer</translation>
    </message>
    <message>
        <source>Foot of the page</source>
        <translation>Fußzeile</translation>
    </message>
    <message>
        <source>The first reminder</source>
        <translation>Zahlungserinnerung</translation>
    </message>
    <message>
        <source>The second reminder</source>
        <translation>Mahnung</translation>
    </message>
    <message>
        <source>The third reminder</source>
        <translation>Letzte Mahnung</translation>
    </message>
    <message>
        <source>Days to pay after a reminder</source>
        <translation>Zahlungsfrist nach einer Mahnung in Tagen</translation>
    </message>
    <message>
        <source>Late fee</source>
        <translation>Mahngebühr</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>Percent</source>
        <translation>Prozent</translation>
    </message>
    <message>
        <source>Beginning with</source>
        <translation>Ab</translation>
    </message>
    <message>
        <source>Business</source>
        <translation>Unternehmen</translation>
    </message>
    <message>
        <source>Who your documents come from.</source>
        <translation>Von wem die Belege kommen.</translation>
    </message>
    <message>
        <source>Bank &amp; QR</source>
        <translation>Bank &amp; QR</translation>
    </message>
    <message>
        <source>Numbering</source>
        <translation>Nummern</translation>
    </message>
    <message>
        <source>Invoices</source>
        <translation>Rechnungen</translation>
    </message>
    <message>
        <source>Quotes</source>
        <translation>Angebote</translation>
    </message>
    <message>
        <source>Credit notes</source>
        <translation>Gutschriften</translation>
    </message>
    <message>
        <source>Clients</source>
        <translation>Kunden</translation>
    </message>
    <message>
        <source>File names</source>
        <translation>Dateinamen</translation>
    </message>
    <message>
        <source>Taxes</source>
        <translation>Steuern</translation>
    </message>
    <message>
        <source>The rates themselves are in the catalog.</source>
        <translation>Die Sätze selbst stehen im Katalog.</translation>
    </message>
    <message>
        <source>The tax is called</source>
        <translation>Bezeichnung der Steuer</translation>
    </message>
    <message>
        <source>You charge no tax</source>
        <translation>Ohne Steuer abrechnen</translation>
    </message>
    <message>
        <source>Why, on your invoices</source>
        <translation>Begründung auf Rechnungen</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>Gestaltung</translation>
    </message>
    <message>
        <source>How your documents look.</source>
        <translation>Wie die Belege aussehen.</translation>
    </message>
    <message>
        <source>Texts</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>What new documents begin and end with.</source>
        <translation>Womit neue Belege anfangen und enden.</translation>
    </message>
    <message>
        <source>Above the lines of an invoice</source>
        <translation>Über den Positionen einer Rechnung</translation>
    </message>
    <message>
        <source>Below them</source>
        <translation>Darunter</translation>
    </message>
    <message>
        <source>Above the lines of a quote</source>
        <translation>Über den Positionen eines Angebots</translation>
    </message>
    <message>
        <source>Reminders</source>
        <translation>Mahnungen</translation>
    </message>
    <message>
        <source>What happens when an invoice stays open.</source>
        <translation>Was geschieht, wenn eine Rechnung offen bleibt.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeiten</translation>
    </message>
    <message>
        <source>What tracked time becomes on an invoice.</source>
        <translation>Was aus erfasster Zeit auf einer Rechnung wird.</translation>
    </message>
    <message>
        <source>Hourly rate</source>
        <translation>Stundensatz</translation>
    </message>
    <message>
        <source>Next number: %1</source>
        <translation>Nächste Nummer: %1</translation>
    </message>
    <message>
        <source>Example: %1</source>
        <translation>Beispiel: %1</translation>
    </message>
    <message>
        <source>Counting on from</source>
        <translation>Weiterzählen ab</translation>
    </message>
    <message>
        <source>How numbers and file names are made. {yyyy}, {yy}, {mm}, {dd} and {q} stand for the date, {###} for the counter with as many digits; {###,y}, {###,q}, {###,m} and {###,d} begin anew with each year, quarter, month and day.</source>
        <translation>Wie Nummern und Dateinamen gebildet werden. {yyyy}, {yy}, {mm}, {dd} und {q} stehen für das Datum, {###} für den Zähler mit ebenso vielen Stellen; {###,y}, {###,q}, {###,m} und {###,d} beginnen mit jedem Jahr, Quartal, Monat und Tag neu.</translation>
    </message>
    <message>
        <source>Where the money goes. It is printed on your invoices.</source>
        <translation>Wohin das Geld geht. Es steht auf den Rechnungen.</translation>
    </message>
    <message>
        <source>Not rounded</source>
        <translation>Nicht gerundet</translation>
    </message>
    <message>
        <source>Up to %1 minutes</source>
        <translation>Auf %1 Minuten</translation>
    </message>
    <message>
        <source>Each entry</source>
        <translation>Jeder Eintrag</translation>
    </message>
</context>
<context>
    <name>StatusText</name>
    <message>
        <source>Overdue since yesterday</source>
        <translation>Seit gestern überfällig</translation>
    </message>
    <message>
        <source>Overdue by %1 days</source>
        <translation>Seit %1 Tagen überfällig</translation>
    </message>
    <message>
        <source>Invoices</source>
        <translation>Rechnungen</translation>
    </message>
    <message>
        <source>Quotes</source>
        <translation>Angebote</translation>
    </message>
    <message>
        <source>Credit Notes</source>
        <translation>Gutschriften</translation>
    </message>
    <message>
        <source>Recurring</source>
        <translation>Wiederkehrend</translation>
    </message>
    <message>
        <source>New Invoice</source>
        <translation>Neue Rechnung</translation>
    </message>
    <message>
        <source>New Quote</source>
        <translation>Neues Angebot</translation>
    </message>
    <message>
        <source>New Credit Note</source>
        <translation>Neue Gutschrift</translation>
    </message>
    <message>
        <source>New Recurring Invoice</source>
        <translation>Neue wiederkehrende Rechnung</translation>
    </message>
</context>
<context>
    <name>TimeText</name>
    <message>
        <source>On a draft</source>
        <translation>In einem Entwurf</translation>
    </message>
    <message>
        <source>Not billable</source>
        <translation>Nicht abrechenbar</translation>
    </message>
</context>
<context>
    <name>TimerControl</name>
    <message>
        <source>Stop Timer</source>
        <translation>Stoppuhr anhalten</translation>
    </message>
    <message>
        <source>%1 hours were recorded.</source>
        <translation>%1 Stunden wurden erfasst.</translation>
    </message>
</context>
<context>
    <name>WindowWords</name>
    <message>
        <source>Client</source>
        <translation>Kunde</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Valid until</source>
        <translation>Gültig bis</translation>
    </message>
    <message>
        <source>To be paid within</source>
        <translation>Zahlbar in</translation>
    </message>
    <message>
        <source>Delivered or done</source>
        <translation>Geliefert oder geleistet</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Introduction</source>
        <translation>Einleitung</translation>
    </message>
    <message>
        <source>Closing text</source>
        <translation>Schlusstext</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>Währung</translation>
    </message>
    <message>
        <source>Discount</source>
        <translation>Rabatt</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>Steuer</translation>
    </message>
    <message>
        <source>Why there&apos;s no tax</source>
        <translation>Grund der Befreiung</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>Menge</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>Preis</translation>
    </message>
    <message>
        <source>Fee</source>
        <translation>Gebühr</translation>
    </message>
    <message>
        <source>Copying the last invoice</source>
        <translation>Letzte Rechnung übernehmen</translation>
    </message>
</context>
</TS>
