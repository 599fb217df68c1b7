#include "QuillaryCore/Output/DocumentStrings.h"

#include "QuillaryCore/Model/Document.h"
#include "QuillaryCore/Model/DocumentKind.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Quillary {

namespace {

using Key = DocumentStrings::Key;

/// One label in English, German, French, Spanish, Dutch and Italian, the order of `DocumentLanguage`.
struct Label
{
    Key key;
    std::array<std::string_view, 6> texts;
};

constexpr Label labels[] = {
    {Key::invoice, {"Invoice", "Rechnung", "Facture", "Factura", "Factuur", "Fattura"}},
    {Key::quote, {"Quote", "Angebot", "Devis", "Presupuesto", "Offerte", "Preventivo"}},
    {Key::creditNote, {"Credit Note", "Gutschrift", "Avoir", "Factura rectificativa", "Creditnota", "Nota di credito"}},
    {Key::number, {"Number", "Nummer", "Numéro", "Número", "Nummer", "Numero"}},
    {Key::date, {"Date", "Datum", "Date", "Fecha", "Datum", "Data"}},
    {Key::dueDate, {"Due date", "Fällig am", "Échéance", "Vencimiento", "Vervaldatum", "Scadenza"}},
    {Key::validUntil,
     {"Valid until", "Gültig bis", "Valable jusqu'au", "Válido hasta", "Geldig tot", "Valido fino al"}},
    {Key::clientNumber, {"Customer no.", "Kundennr.", "N° client", "N.º de cliente", "Klantnummer", "Cod. cliente"}},
    {Key::deliveryDate,
     {"Delivery date", "Lieferdatum", "Date de livraison", "Fecha de entrega", "Leverdatum", "Data di consegna"}},
    {Key::serviceDate,
     {"Service date",
      "Leistungsdatum",
      "Date de prestation",
      "Fecha del servicio",
      "Prestatiedatum",
      "Data della prestazione"}},
    {Key::deliveryPeriod,
     {"Delivery period",
      "Lieferzeitraum",
      "Période de livraison",
      "Periodo de entrega",
      "Leverperiode",
      "Periodo di consegna"}},
    {Key::servicePeriod,
     {"Service period",
      "Leistungszeitraum",
      "Période de prestation",
      "Periodo del servicio",
      "Prestatieperiode",
      "Periodo della prestazione"}},
    {Key::taxNumber, {"Tax number", "Steuernummer", "N° fiscal", "NIF", "Fiscaal nummer", "Codice fiscale"}},
    {Key::description, {"Description", "Beschreibung", "Désignation", "Descripción", "Omschrijving", "Descrizione"}},
    {Key::quantity, {"Qty", "Menge", "Qté", "Cant.", "Aantal", "Qtà"}},
    {Key::unitPrice, {"Unit price", "Einzelpreis", "Prix unitaire", "Precio unitario", "Stukprijs", "Prezzo unitario"}},
    {Key::amount, {"Amount", "Betrag", "Montant", "Importe", "Bedrag", "Importo"}},
    {Key::subtotal, {"Subtotal", "Zwischensumme", "Sous-total", "Subtotal", "Subtotaal", "Subtotale"}},
    {Key::discount, {"Discount", "Rabatt", "Remise", "Descuento", "Korting", "Sconto"}},
    {Key::net, {"Net", "Netto", "Total HT", "Base imponible", "Netto", "Imponibile"}},
    {Key::total, {"Total", "Gesamtbetrag", "Total", "Total", "Totaal", "Totale"}},
    {Key::taxOn,
     {"{label} {rate} on {base}",
      "{label} {rate} auf {base}",
      "{label} {rate} sur {base}",
      "{label} {rate} sobre {base}",
      "{label} {rate} over {base}",
      "{label} {rate} su {base}"}},
    {Key::payment, {"Payment", "Zahlung", "Paiement", "Pago", "Betaling", "Pagamento"}},
    {Key::payBy,
     {"Please pay {total} by {date}.",
      "Bitte überweisen Sie {total} bis zum {date}.",
      "Merci de régler {total} avant le {date}.",
      "Por favor, pague {total} antes del {date}.",
      "Gelieve {total} te betalen vóór {date}.",
      "Si prega di pagare {total} entro il {date}."}},
    {Key::payOnReceipt,
     {"Please pay {total} upon receipt.",
      "Bitte überweisen Sie {total} sofort nach Erhalt.",
      "Merci de régler {total} à réception.",
      "Por favor, pague {total} a la recepción.",
      "Gelieve {total} direct na ontvangst te betalen.",
      "Si prega di pagare {total} al ricevimento."}},
    {Key::accountHolder,
     {"Account holder",
      "Kontoinhaber",
      "Titulaire du compte",
      "Titular de la cuenta",
      "Rekeninghouder",
      "Intestatario"}},
    {Key::bank, {"Bank", "Bank", "Banque", "Banco", "Bank", "Banca"}},
    {Key::accountNumber,
     {"Account number", "Kontonummer", "Numéro de compte", "Número de cuenta", "Rekeningnummer", "Numero di conto"}},
    {Key::bankCode, {"Bank code", "Bankleitzahl", "Code banque", "Código bancario", "Bankcode", "Codice banca"}},
    {Key::scanToPay,
     {"Scan to pay",
      "Zum Bezahlen scannen",
      "Scanner pour payer",
      "Escanee para pagar",
      "Scan om te betalen",
      "Scansiona per pagare"}},
    {Key::creditNoteFor,
     {"Credit note for invoice {number} of {date}",
      "Gutschrift zur Rechnung {number} vom {date}",
      "Avoir sur la facture {number} du {date}",
      "Rectificación de la factura {number} del {date}",
      "Creditnota voor factuur {number} van {date}",
      "Nota di credito per la fattura {number} del {date}"}},
    {Key::page,
     {"Page {page} of {pages}",
      "Seite {page} von {pages}",
      "Page {page} sur {pages}",
      "Página {page} de {pages}",
      "Pagina {page} van {pages}",
      "Pagina {page} di {pages}"}},
    {Key::paid, {"Paid", "Bereits bezahlt", "Déjà réglé", "Ya pagado", "Reeds betaald", "Già pagato"}},
    {Key::amountDue,
     {"Amount due", "Offener Betrag", "Montant dû", "Importe pendiente", "Openstaand bedrag", "Importo dovuto"}},
    {Key::lateFee,
     {"Late fee", "Mahngebühr", "Frais de relance", "Gastos de reclamación", "Aanmaningskosten", "Spese di sollecito"}},
    {Key::invoiceTotal,
     {"Invoice total",
      "Rechnungsbetrag",
      "Montant de la facture",
      "Importe de la factura",
      "Factuurbedrag",
      "Importo della fattura"}},
    {Key::invoiceNumber,
     {"Invoice no.", "Rechnungsnr.", "N° de facture", "N.º de factura", "Factuurnummer", "N. fattura"}},
    {Key::invoiceDate,
     {"Invoice date", "Rechnungsdatum", "Date de facture", "Fecha de factura", "Factuurdatum", "Data fattura"}},
    {Key::reminder1,
     {"Payment Reminder",
      "Zahlungserinnerung",
      "Rappel de paiement",
      "Recordatorio de pago",
      "Betalingsherinnering",
      "Promemoria di pagamento"}},
    {Key::reminder2,
     {"Second Reminder",
      "Mahnung",
      "Deuxième rappel",
      "Segundo recordatorio",
      "Tweede herinnering",
      "Sollecito di pagamento"}},
    {Key::reminder3,
     {"Final Notice", "Letzte Mahnung", "Dernier rappel", "Último aviso", "Laatste aanmaning", "Ultimo sollecito"}},
    {Key::reminderText1,
     {"This is a friendly reminder that invoice {number} of {date} has not been paid yet. If you've already paid, "
      "please disregard this letter.",
      "Sicher ist es Ihrer Aufmerksamkeit entgangen: Die Rechnung {number} vom {date} ist noch nicht bezahlt. Sollten "
      "Sie die Zahlung bereits veranlasst haben, betrachten Sie dieses Schreiben bitte als gegenstandslos.",
      "Sauf erreur de notre part, la facture {number} du {date} n'a pas encore été réglée. Si vous avez déjà effectué "
      "le paiement, merci de ne pas tenir compte de ce courrier.",
      "Le recordamos que la factura {number} del {date} aún no ha sido pagada. Si ya ha realizado el pago, por favor "
      "ignore este aviso.",
      "Wellicht is het aan uw aandacht ontsnapt: factuur {number} van {date} is nog niet betaald. Heeft u inmiddels "
      "betaald, dan kunt u deze herinnering als niet verzonden beschouwen.",
      "Le ricordiamo che la fattura {number} del {date} non risulta ancora pagata. Se ha già provveduto al pagamento, "
      "la preghiamo di non tenere conto di questo avviso."}},
    {Key::reminderText2,
     {"Despite our reminder, invoice {number} of {date} is still unpaid. Please pay the amount due promptly.",
      "Trotz unserer Zahlungserinnerung ist die Rechnung {number} vom {date} noch nicht bezahlt. Bitte begleichen Sie "
      "den offenen Betrag umgehend.",
      "Malgré notre rappel, la facture {number} du {date} reste impayée. Merci de régler le montant dû dans les "
      "meilleurs délais.",
      "A pesar de nuestro recordatorio, la factura {number} del {date} sigue pendiente de pago. Le rogamos que abone "
      "el importe pendiente lo antes posible.",
      "Ondanks onze herinnering is factuur {number} van {date} nog steeds niet betaald. Wij verzoeken u het "
      "openstaande bedrag per omgaande te voldoen.",
      "Nonostante il nostro promemoria, la fattura {number} del {date} risulta ancora non pagata. La preghiamo di "
      "saldare l'importo dovuto al più presto."}},
    {Key::reminderText3,
     {"Invoice {number} of {date} remains unpaid despite our reminders. Please pay the amount due by the date below at "
      "the latest.",
      "Die Rechnung {number} vom {date} ist trotz unserer Mahnungen weiterhin unbezahlt. Bitte begleichen Sie den "
      "offenen Betrag spätestens bis zum unten genannten Datum.",
      "Malgré nos rappels, la facture {number} du {date} reste impayée. Merci de régler le montant dû au plus tard à "
      "la date indiquée ci-dessous.",
      "A pesar de nuestros recordatorios, la factura {number} del {date} sigue sin pagarse. Le rogamos que abone el "
      "importe pendiente a más tardar en la fecha indicada abajo.",
      "Ondanks onze herinneringen is factuur {number} van {date} nog altijd onbetaald. Wij verzoeken u het openstaande "
      "bedrag uiterlijk op de hieronder genoemde datum te voldoen.",
      "Nonostante i nostri solleciti, la fattura {number} del {date} risulta ancora non pagata. La preghiamo di "
      "saldare l'importo dovuto entro e non oltre la data indicata qui sotto."}},
};

constexpr bool standInTheOrderOfTheKeys()
{
    for (std::size_t index = 0; index < std::size(labels); ++index) {
        if (static_cast<std::size_t>(labels[index].key) != index) {
            return false;
        }
    }
    return static_cast<std::size_t>(Key::reminderText3) + 1 == std::size(labels);
}
static_assert(standInTheOrderOfTheKeys());

} // namespace

std::string_view DocumentStrings::text(Key key) const
{
    return labels[static_cast<std::size_t>(key)].texts[static_cast<std::size_t>(m_language)];
}

std::string DocumentStrings::format(Key key, std::initializer_list<Value> values) const
{
    std::string_view rest = text(key);
    std::string result;
    std::size_t size = rest.size();
    for (const Value& value : values) {
        size += value.text.size();
    }
    result.reserve(size);
    while (!rest.empty()) {
        const std::size_t brace = std::min(rest.find('{'), rest.size());
        result += rest.substr(0, brace);
        rest.remove_prefix(brace);
        const std::size_t end = rest.find('}');
        if (end == std::string_view::npos) {
            break;
        }
        const auto value = std::ranges::find(values, rest.substr(1, end - 1), &Value::word);
        result += value != values.end() ? value->text : rest.substr(0, end + 1);
        rest.remove_prefix(end + 1);
    }
    result += rest;
    return result;
}

DocumentStrings::Key headingKey(const Document& document)
{
    switch (kind(document).value_or(DocumentKind::invoice)) {
    case DocumentKind::quote:
        return Key::quote;
    case DocumentKind::creditNote:
        return Key::creditNote;
    case DocumentKind::invoice:
    case DocumentKind::recurring:
        break;
    }
    return Key::invoice;
}

} // namespace Quillary
