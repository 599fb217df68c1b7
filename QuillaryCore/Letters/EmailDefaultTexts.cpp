#include "QuillaryCore/Foundation/Precondition.h"
#include "QuillaryCore/Letters/EmailTemplates.h"

#include <array>
#include <cstddef>
#include <source_location>

namespace Quillary {

namespace {

/// A text in each document language, in the order of `allDocumentLanguages`.
using Texts = std::array<EmailText, allDocumentLanguages.size()>;

const Texts invoiceTexts = {{
    // English
    {.subject = "Invoice {number} from {business}",
     .body = "Hi {name},\n\n"
             "Please find attached invoice {number} for {total}, due on {due_date}.\n\n"
             "Thank you for your business!\n\n"
             "Best regards,\n"
             "{business}"},
    // German
    {.subject = "Rechnung {number} von {business}",
     .body = "Hallo {name},\n\n"
             "anbei erhalten Sie die Rechnung {number} über {total}, zahlbar bis zum {due_date}.\n\n"
             "Vielen Dank für Ihren Auftrag!\n\n"
             "Viele Grüße\n"
             "{business}"},
    // French
    {.subject = "Facture {number} de {business}",
     .body = "Bonjour {name},\n\n"
             "Veuillez trouver ci-joint la facture {number} d'un montant de {total}, à régler avant le {due_date}.\n\n"
             "Merci pour votre confiance.\n\n"
             "Cordialement,\n"
             "{business}"},
    // Spanish
    {.subject = "Factura {number} de {business}",
     .body = "Hola {name}:\n\n"
             "Le adjuntamos la factura {number} por un importe de {total}, con vencimiento el {due_date}.\n\n"
             "¡Gracias por su confianza!\n\n"
             "Un saludo,\n"
             "{business}"},
    // Dutch
    {.subject = "Factuur {number} van {business}",
     .body = "Beste {name},\n\n"
             "In de bijlage vindt u factuur {number} van {total}, te betalen vóór {due_date}.\n\n"
             "Bedankt voor uw opdracht!\n\n"
             "Met vriendelijke groet,\n"
             "{business}"},
    // Italian
    {.subject = "Fattura {number} di {business}",
     .body = "Gentile {name},\n\n"
             "in allegato trova la fattura {number} di {total}, da pagare entro il {due_date}.\n\n"
             "Grazie per la fiducia!\n\n"
             "Cordiali saluti,\n"
             "{business}"},
}};

const Texts quoteTexts = {{
    // English
    {.subject = "Quote {number} from {business}",
     .body = "Hi {name},\n\n"
             "Please find attached our quote {number} for {total}, valid until {valid_until}.\n\n"
             "If you have any questions, just reply to this email.\n\n"
             "Best regards,\n"
             "{business}"},
    // German
    {.subject = "Angebot {number} von {business}",
     .body = "Hallo {name},\n\n"
             "anbei erhalten Sie unser Angebot {number} über {total}, gültig bis zum {valid_until}.\n\n"
             "Bei Fragen antworten Sie einfach auf diese E-Mail.\n\n"
             "Viele Grüße\n"
             "{business}"},
    // French
    {.subject = "Devis {number} de {business}",
     .body =
         "Bonjour {name},\n\n"
         "Veuillez trouver ci-joint notre devis {number} d'un montant de {total}, valable jusqu'au {valid_until}.\n\n"
         "Pour toute question, répondez simplement à cet e-mail.\n\n"
         "Cordialement,\n"
         "{business}"},
    // Spanish
    {.subject = "Presupuesto {number} de {business}",
     .body = "Hola {name}:\n\n"
             "Le adjuntamos nuestro presupuesto {number} por un importe de {total}, válido hasta el {valid_until}.\n\n"
             "Si tiene alguna pregunta, responda a este correo.\n\n"
             "Un saludo,\n"
             "{business}"},
    // Dutch
    {.subject = "Offerte {number} van {business}",
     .body = "Beste {name},\n\n"
             "In de bijlage vindt u onze offerte {number} van {total}, geldig tot {valid_until}.\n\n"
             "Heeft u vragen? Beantwoord dan gewoon deze e-mail.\n\n"
             "Met vriendelijke groet,\n"
             "{business}"},
    // Italian
    {.subject = "Preventivo {number} di {business}",
     .body = "Gentile {name},\n\n"
             "in allegato trova il nostro preventivo {number} di {total}, valido fino al {valid_until}.\n\n"
             "Per qualsiasi domanda, risponda pure a questa e-mail.\n\n"
             "Cordiali saluti,\n"
             "{business}"},
}};

const Texts creditNoteTexts = {{
    // English
    {.subject = "Credit note {number} from {business}",
     .body = "Hi {name},\n\n"
             "Please find attached credit note {number}.\n\n"
             "Best regards,\n"
             "{business}"},
    // German
    {.subject = "Gutschrift {number} von {business}",
     .body = "Hallo {name},\n\n"
             "anbei erhalten Sie die Gutschrift {number}.\n\n"
             "Viele Grüße\n"
             "{business}"},
    // French
    {.subject = "Avoir {number} de {business}",
     .body = "Bonjour {name},\n\n"
             "Veuillez trouver ci-joint l'avoir {number}.\n\n"
             "Cordialement,\n"
             "{business}"},
    // Spanish
    {.subject = "Factura rectificativa {number} de {business}",
     .body = "Hola {name}:\n\n"
             "Le adjuntamos la factura rectificativa {number}.\n\n"
             "Un saludo,\n"
             "{business}"},
    // Dutch
    {.subject = "Creditnota {number} van {business}",
     .body = "Beste {name},\n\n"
             "In de bijlage vindt u creditnota {number}.\n\n"
             "Met vriendelijke groet,\n"
             "{business}"},
    // Italian
    {.subject = "Nota di credito {number} di {business}",
     .body = "Gentile {name},\n\n"
             "in allegato trova la nota di credito {number}.\n\n"
             "Cordiali saluti,\n"
             "{business}"},
}};

const Texts reminderTexts = {{
    // English
    {.subject = "Payment reminder: invoice {number}",
     .body = "Hi {name},\n\n"
             "This is a friendly reminder that invoice {number} of {date} is still open. Please pay the outstanding "
             "{amount_due} by {pay_by}.\n\n"
             "If you've already paid, please disregard this email.\n\n"
             "Best regards,\n"
             "{business}"},
    // German
    {.subject = "Zahlungserinnerung zur Rechnung {number}",
     .body = "Hallo {name},\n\n"
             "sicher ist es Ihrer Aufmerksamkeit entgangen: Die Rechnung {number} vom {date} ist noch offen. Bitte "
             "überweisen Sie den offenen Betrag von {amount_due} bis zum {pay_by}.\n\n"
             "Sollten Sie bereits bezahlt haben, betrachten Sie diese E-Mail bitte als gegenstandslos.\n\n"
             "Viele Grüße\n"
             "{business}"},
    // French
    {.subject = "Rappel de paiement\u00A0: facture {number}",
     .body = "Bonjour {name},\n\n"
             "Sauf erreur de notre part, la facture {number} du {date} n'a pas encore été réglée. Merci de régler le "
             "montant dû de {amount_due} avant le {pay_by}.\n\n"
             "Si vous avez déjà effectué le paiement, merci de ne pas tenir compte de cet e-mail.\n\n"
             "Cordialement,\n"
             "{business}"},
    // Spanish
    {.subject = "Recordatorio de pago: factura {number}",
     .body = "Hola {name}:\n\n"
             "Le recordamos que la factura {number} del {date} sigue pendiente. Le rogamos que abone el importe "
             "pendiente de {amount_due} antes del {pay_by}.\n\n"
             "Si ya ha realizado el pago, ignore este correo.\n\n"
             "Un saludo,\n"
             "{business}"},
    // Dutch
    {.subject = "Betalingsherinnering: factuur {number}",
     .body = "Beste {name},\n\n"
             "Wellicht is het aan uw aandacht ontsnapt: factuur {number} van {date} staat nog open. Wilt u het "
             "openstaande bedrag van {amount_due} vóór {pay_by} betalen?\n\n"
             "Heeft u inmiddels betaald, dan kunt u deze e-mail als niet verzonden beschouwen.\n\n"
             "Met vriendelijke groet,\n"
             "{business}"},
    // Italian
    {.subject = "Promemoria di pagamento: fattura {number}",
     .body = "Gentile {name},\n\n"
             "le ricordiamo che la fattura {number} del {date} risulta ancora aperta. La preghiamo di saldare "
             "l'importo dovuto di {amount_due} entro il {pay_by}.\n\n"
             "Se ha già provveduto al pagamento, non tenga conto di questa e-mail.\n\n"
             "Cordiali saluti,\n"
             "{business}"},
}};

const Texts secondReminderTexts = {{
    // English
    {.subject = "Second reminder: invoice {number}",
     .body = "Hi {name},\n\n"
             "Despite our reminder, invoice {number} of {date} is still unpaid. Please pay the outstanding "
             "{amount_due} by {pay_by}.\n\n"
             "Best regards,\n"
             "{business}"},
    // German
    {.subject = "Mahnung zur Rechnung {number}",
     .body = "Hallo {name},\n\n"
             "trotz unserer Zahlungserinnerung ist die Rechnung {number} vom {date} noch nicht bezahlt. Bitte "
             "überweisen Sie den offenen Betrag von {amount_due} bis zum {pay_by}.\n\n"
             "Viele Grüße\n"
             "{business}"},
    // French
    {.subject = "Deuxième rappel\u00A0: facture {number}",
     .body = "Bonjour {name},\n\n"
             "Malgré notre rappel, la facture {number} du {date} reste impayée. Merci de régler le montant dû de "
             "{amount_due} avant le {pay_by}.\n\n"
             "Cordialement,\n"
             "{business}"},
    // Spanish
    {.subject = "Segundo recordatorio: factura {number}",
     .body = "Hola {name}:\n\n"
             "A pesar de nuestro recordatorio, la factura {number} del {date} sigue sin pagarse. Le rogamos que abone "
             "el importe pendiente de {amount_due} antes del {pay_by}.\n\n"
             "Un saludo,\n"
             "{business}"},
    // Dutch
    {.subject = "Tweede herinnering: factuur {number}",
     .body = "Beste {name},\n\n"
             "Ondanks onze herinnering is factuur {number} van {date} nog steeds niet betaald. Wij verzoeken u het "
             "openstaande bedrag van {amount_due} vóór {pay_by} te betalen.\n\n"
             "Met vriendelijke groet,\n"
             "{business}"},
    // Italian
    {.subject = "Sollecito di pagamento: fattura {number}",
     .body = "Gentile {name},\n\n"
             "nonostante il nostro promemoria, la fattura {number} del {date} risulta ancora non pagata. La preghiamo "
             "di saldare l'importo dovuto di {amount_due} entro il {pay_by}.\n\n"
             "Cordiali saluti,\n"
             "{business}"},
}};

const Texts finalNoticeTexts = {{
    // English
    {.subject = "Final notice: invoice {number}",
     .body = "Hi {name},\n\n"
             "Invoice {number} of {date} remains unpaid despite our reminders. Please pay the outstanding {amount_due} "
             "by {pay_by} at the latest.\n\n"
             "Best regards,\n"
             "{business}"},
    // German
    {.subject = "Letzte Mahnung zur Rechnung {number}",
     .body = "Hallo {name},\n\n"
             "die Rechnung {number} vom {date} ist trotz unserer Mahnungen weiterhin unbezahlt. Bitte überweisen Sie "
             "den offenen Betrag von {amount_due} spätestens bis zum {pay_by}.\n\n"
             "Viele Grüße\n"
             "{business}"},
    // French
    {.subject = "Dernier rappel\u00A0: facture {number}",
     .body = "Bonjour {name},\n\n"
             "Malgré nos rappels, la facture {number} du {date} reste impayée. Merci de régler le montant dû de "
             "{amount_due} au plus tard le {pay_by}.\n\n"
             "Cordialement,\n"
             "{business}"},
    // Spanish
    {.subject = "Último aviso: factura {number}",
     .body = "Hola {name}:\n\n"
             "A pesar de nuestros recordatorios, la factura {number} del {date} sigue sin pagarse. Le rogamos que "
             "abone el importe pendiente de {amount_due} a más tardar el {pay_by}.\n\n"
             "Un saludo,\n"
             "{business}"},
    // Dutch
    {.subject = "Laatste aanmaning: factuur {number}",
     .body = "Beste {name},\n\n"
             "Ondanks onze herinneringen is factuur {number} van {date} nog altijd onbetaald. Wij verzoeken u het "
             "openstaande bedrag van {amount_due} uiterlijk op {pay_by} te betalen.\n\n"
             "Met vriendelijke groet,\n"
             "{business}"},
    // Italian
    {.subject = "Ultimo sollecito: fattura {number}",
     .body = "Gentile {name},\n\n"
             "nonostante i nostri solleciti, la fattura {number} del {date} risulta ancora non pagata. La preghiamo di "
             "saldare l'importo dovuto di {amount_due} entro e non oltre il {pay_by}.\n\n"
             "Cordiali saluti,\n"
             "{business}"},
}};

const Texts& texts(EmailKind kind)
{
    switch (kind) {
    case EmailKind::invoice:
        return invoiceTexts;
    case EmailKind::quote:
        return quoteTexts;
    case EmailKind::creditNote:
        return creditNoteTexts;
    case EmailKind::reminder:
        return reminderTexts;
    case EmailKind::secondReminder:
        return secondReminderTexts;
    case EmailKind::finalNotice:
        return finalNoticeTexts;
    }
    stopProgram("an email kind is one of the six", std::source_location::current());
}

} // namespace

const EmailText& EmailTemplates::defaultText(EmailKind kind, DocumentLanguage language)
{
    return texts(kind).at(static_cast<std::size_t>(language));
}

} // namespace Quillary
