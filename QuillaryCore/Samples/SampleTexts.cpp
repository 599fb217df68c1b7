#include "QuillaryCore/Samples/SampleTexts.h"

#include <cstddef>

namespace Quillary {

namespace {

constexpr SampleTexts english = {
    .business = {"Harbour & Finch Studio Ltd", "12 Wharf Street", "BS1 4DJ", "Bristol", "", "GB", "GB 123 4567 89"},
    .homeClient = {"Northwind Energy plc", "3 Dock Road", "LS1 4DY", "Leeds", "", "GB", "GB 987 6543 21"},
    .foreignClient = {"Atelier Lindqvist & Söhne GmbH", "Lindenstraße 14", "10115", "Berlin", "", "DE", "DE123456789"},
    .currencyCode = "GBP",
    .standardRate = 2000,
    .reducedRate = 500,
    .phone = "+44 117 496 0123",
    .email = "hello@harbourfinch.example",
    .website = "www.harbourfinch.example",
    .taxID = "",
    .bankName = "Example Bank, Bristol",
    .iban = "GB29NWBK60161331926819",
    .bic = "NWBKGB2L",
    .footerNote = "Harbour & Finch Studio Ltd · Registered in England and Wales no. 01234567 · Director: Ellen Finch",
    .invoiceTitle = "Website relaunch",
    .invoiceIntro = "Dear Ms Hartley,\nthank you for your order. As agreed, we invoice the following work:",
    .invoiceOutro = "It was a pleasure working with you and your team.\n\nWith kind regards\nEllen Finch",
    .quoteTitle = "A new brand for Negev Studio",
    .quoteIntro =
        "Dear Mr Levi,\nmany thanks for the good conversation in **Bristol**. This is our offer for the steps that we "
        "planned together:",
    .quoteOutro =
        "The price holds for the scope described here:\n- two rounds of corrections are included\n- travel is "
        "charged at cost\n\nWe look forward to hearing from you.",
    .creditIntro =
        "Dear Ms Hartley,\nthree handbooks came back undamaged, and one day of training did not take place. We "
        "credit you with both:",
    .supportTitle = "Support and maintenance",
    .reverseChargeNote = "Reverse charge: the customer accounts for the VAT.",
    .discountTitle = "Returning customer",
    .feeTitle = "Express delivery",
    .design = {"Concept and design", "Home page, section pages and forms\n- two drafts\n- one round of corrections"},
    .build = {"Implementation", "Responsive, accessible and measured on real devices"},
    .templates = {"Page templates", ""},
    .editor = {"Editorial system, set up and filled", ""},
    .handbook = {"Handbook, printed", "A5, thread-stitched, 64 pages"},
    .training = {"Training of the team on site", "Two half days in Leeds, *for up to eight people*"},
    .hosting = {"Domain and hosting", "March 2026 to February 2027"},
    .optionHeading = {"Options", "Not included in the total; order them with a line by email"},
    .option = {"Photographs of rooms and people", "One day with a photographer, all rights included"},
    .support = {{{"Updates of the editorial system", "Version 11.4, tested on the copy before"},
                 {"Form: delivery address corrected", "Ticket 1042"},
                 {"Newsletter, layout and dispatch", ""},
                 {"Analysis of loading times", "Images of the product pages made smaller"},
                 {"Accessibility: contrast of buttons", "Ticket 1057"},
                 {"Telephone consultation", ""}}},
};

constexpr SampleTexts german = {
    .business = {"Atelier Lindqvist & Söhne GmbH", "Lindenstraße 14", "10115", "Berlin", "", "DE", "DE123456789"},
    .homeClient = {"Nordwind Energie AG", "Hafenstraße 3", "20457", "Hamburg", "", "DE", "DE987654321"},
    .foreignClient = {"Bakkerij Van den Berg B.V.", "Haven 7", "1011 AB", "Amsterdam", "", "NL", "NL123456789B01"},
    .currencyCode = "EUR",
    .standardRate = 1900,
    .reducedRate = 700,
    .phone = "+49 30 1234567",
    .email = "hallo@lindqvist.example",
    .website = "www.lindqvist.example",
    .taxID = "30/123/45678",
    .bankName = "Musterbank Berlin",
    .iban = "DE89370400440532013000",
    .bic = "COBADEFFXXX",
    .footerNote = "Geschäftsführerin: Maja Lindqvist · Amtsgericht Charlottenburg · HRB 12345 B",
    .invoiceTitle = "Relaunch der Website",
    .invoiceIntro = "Guten Tag Frau Petersen,\nvielen Dank für Ihren Auftrag. Wie vereinbart berechnen wir:",
    .invoiceOutro = "Vielen Dank für die angenehme Zusammenarbeit.\n\nMit freundlichen Grüßen\nMaja Lindqvist",
    .quoteTitle = "Ein neuer Auftritt für Studio Negev",
    .quoteIntro =
        "Sehr geehrter Herr Levi,\nvielen Dank für das gute Gespräch in **Berlin**. Für die besprochenen Schritte "
        "bieten wir an:",
    .quoteOutro = "Der Preis gilt für den beschriebenen Umfang:\n- zwei Korrekturrunden sind enthalten\n- Reisekosten "
                  "berechnen wir nach Aufwand\n\nWir freuen uns auf Ihre Nachricht.",
    .creditIntro =
        "Guten Tag Frau Petersen,\ndrei Handbücher kamen unbeschädigt zurück, und ein Schulungstag hat nicht "
        "stattgefunden. Beides schreiben wir Ihnen gut:",
    .supportTitle = "Betreuung und Pflege",
    .reverseChargeNote = "Steuerschuldnerschaft des Leistungsempfängers (Reverse Charge).",
    .discountTitle = "Treuerabatt",
    .feeTitle = "Expressversand",
    .design = {"Konzept und Gestaltung",
               "Startseite, Unterseiten und Formulare\n- zwei Entwürfe\n- eine Korrekturrunde"},
    .build = {"Umsetzung", "Für alle Bildschirme, barrierefrei, auf echten Geräten gemessen"},
    .templates = {"Seitenvorlagen", ""},
    .editor = {"Redaktionssystem, eingerichtet und befüllt", ""},
    .handbook = {"Handbuch, gedruckt", "A5, fadengeheftet, 64 Seiten"},
    .training = {"Schulung des Teams vor Ort", "Zwei halbe Tage in Hamburg, *für bis zu acht Personen*"},
    .hosting = {"Domain und Hosting", "März 2026 bis Februar 2027"},
    .optionHeading = {"Optionen", "Nicht in der Summe enthalten; eine Zeile per E-Mail genügt"},
    .option = {"Fotografien von Räumen und Menschen", "Ein Tag mit Fotograf, alle Rechte inbegriffen"},
    .support = {{{"Aktualisierung des Redaktionssystems", "Version 11.4, zuvor an der Kopie geprüft"},
                 {"Formular: Lieferadresse berichtigt", "Vorgang 1042"},
                 {"Rundschreiben, Gestaltung und Versand", ""},
                 {"Untersuchung der Ladezeiten", "Bilder der Produktseiten verkleinert"},
                 {"Barrierefreiheit: Kontrast der Schaltflächen", "Vorgang 1057"},
                 {"Telefonische Beratung", ""}}},
};

constexpr SampleTexts french = {
    .business = {"Atelier Garance SARL", "8 rue des Tanneurs", "69005", "Lyon", "", "FR", "FR12345678901"},
    .homeClient = {"Éditions du Phare SAS", "21 quai de la Douane", "29200", "Brest", "", "FR", "FR98765432109"},
    .foreignClient = {"Estudio Levante S.L.", "Calle de la Paz 9", "46003", "València", "", "ES", "ESB12345678"},
    .currencyCode = "EUR",
    .standardRate = 2000,
    .reducedRate = 550,
    .phone = "+33 4 72 00 00 00",
    .email = "bonjour@garance.example",
    .website = "www.garance.example",
    .taxID = "123 456 789 00012",
    .bankName = "Banque Exemple, Lyon",
    .iban = "FR1420041010050500013M02606",
    .bic = "PSSTFRPPXXX",
    .footerNote = "SARL au capital de 10 000 € · RCS Lyon 123 456 789 · Gérante : Garance Morel",
    .invoiceTitle = "Refonte du site internet",
    .invoiceIntro = "Madame,\nnous vous remercions de votre commande. Comme convenu, nous vous facturons :",
    .invoiceOutro = "Nous vous remercions de votre confiance.\n\nCordialement,\nGarance Morel",
    .quoteTitle = "Une nouvelle identité pour le studio Negev",
    .quoteIntro =
        "Monsieur,\nmerci pour notre échange à **Lyon**. Voici notre proposition pour les étapes envisagées :",
    .quoteOutro =
        "Ce prix vaut pour les prestations décrites :\n- deux séries de corrections sont comprises\n- les frais "
        "de déplacement sont facturés au réel\n\nNous restons à votre disposition.",
    .creditIntro =
        "Madame,\ntrois manuels nous ont été retournés en bon état et une journée de formation n'a pas eu lieu. "
        "Nous vous en créditons :",
    .supportTitle = "Assistance et maintenance",
    .reverseChargeNote = "Autoliquidation : la TVA est due par le preneur.",
    .discountTitle = "Remise fidélité",
    .feeTitle = "Livraison express",
    .design = {"Conception et création graphique",
               "Page d'accueil, rubriques et formulaires\n- deux propositions\n- une "
               "série de corrections"},
    .build = {"Réalisation", "Adaptée à tous les écrans, accessible, mesurée sur de vrais appareils"},
    .templates = {"Gabarits de pages", ""},
    .editor = {"Système éditorial, installé et rempli", ""},
    .handbook = {"Manuel imprimé", "A5, cousu, 64 pages"},
    .training = {"Formation de l'équipe sur place", "Deux demi-journées à Brest, *jusqu'à huit personnes*"},
    .hosting = {"Nom de domaine et hébergement", "De mars 2026 à février 2027"},
    .optionHeading = {"Options", "Non comprises dans le total ; un simple courriel suffit"},
    .option = {"Photographies des lieux et des personnes", "Une journée avec photographe, tous droits compris"},
    .support = {{{"Mise à jour du système éditorial", "Version 11.4, essayée d'abord sur la copie"},
                 {"Formulaire : adresse de livraison corrigée", "Demande 1042"},
                 {"Lettre d'information, mise en page et envoi", ""},
                 {"Étude des temps de chargement", "Images des pages produits allégées"},
                 {"Accessibilité : contraste des boutons", "Demande 1057"},
                 {"Conseil par téléphone", ""}}},
};

constexpr SampleTexts spanish = {
    .business = {"Estudio Levante S.L.", "Calle de la Paz 9", "46003", "València", "", "ES", "ESB12345678"},
    .homeClient = {"Bodegas Sierra Clara S.A.", "Calle Mayor 3", "26001", "Logroño", "La Rioja", "ES", "ESA87654321"},
    .foreignClient = {"Atelier Garance SARL", "8 rue des Tanneurs", "69005", "Lyon", "", "FR", "FR12345678901"},
    .currencyCode = "EUR",
    .standardRate = 2100,
    .reducedRate = 1000,
    .phone = "+34 960 00 00 00",
    .email = "hola@levante.example",
    .website = "www.levante.example",
    .taxID = "B12345678",
    .bankName = "Banco Ejemplo, València",
    .iban = "ES9121000418450200051332",
    .bic = "CAIXESBBXXX",
    .footerNote = "Registro Mercantil de València · Tomo 1234 · Folio 56 · Hoja V-78901 · Administradora: Lucía Ferrer",
    .invoiceTitle = "Renovación del sitio web",
    .invoiceIntro = "Estimada señora:\nle agradecemos su pedido. Según lo acordado, le facturamos:",
    .invoiceOutro = "Ha sido un placer trabajar con ustedes.\n\nUn cordial saludo,\nLucía Ferrer",
    .quoteTitle = "Una nueva imagen para el estudio Negev",
    .quoteIntro =
        "Estimado señor Levi:\nmuchas gracias por la conversación en **València**. Esta es nuestra propuesta para "
        "los pasos comentados:",
    .quoteOutro = "El precio corresponde al trabajo descrito:\n- incluye dos rondas de correcciones\n- los viajes se "
                  "facturan según su coste\n\nQuedamos a su disposición.",
    .creditIntro =
        "Estimada señora:\nhemos recibido tres manuales en buen estado y un día de formación no tuvo lugar. Le "
        "abonamos ambos:",
    .supportTitle = "Asistencia y mantenimiento",
    .reverseChargeNote = "Inversión del sujeto pasivo: el IVA corresponde al destinatario.",
    .discountTitle = "Descuento por fidelidad",
    .feeTitle = "Envío urgente",
    .design = {"Concepto y diseño", "Portada, secciones y formularios\n- dos propuestas\n- una ronda de correcciones"},
    .build = {"Desarrollo", "Para todas las pantallas, accesible y medido en dispositivos reales"},
    .templates = {"Plantillas de páginas", ""},
    .editor = {"Sistema editorial, instalado y con contenidos", ""},
    .handbook = {"Manual impreso", "A5, cosido, 64 páginas"},
    .training = {"Formación del equipo en su sede", "Dos medias jornadas en Logroño, *hasta ocho personas*"},
    .hosting = {"Dominio y alojamiento", "De marzo de 2026 a febrero de 2027"},
    .optionHeading = {"Opciones", "No incluidas en el total; basta un correo electrónico"},
    .option = {"Fotografías de espacios y personas", "Un día con fotógrafo, todos los derechos incluidos"},
    .support = {{{"Actualización del sistema editorial", "Versión 11.4, probada antes en la copia"},
                 {"Formulario: dirección de entrega corregida", "Consulta 1042"},
                 {"Boletín, maquetación y envío", ""},
                 {"Análisis de los tiempos de carga", "Imágenes de los productos reducidas"},
                 {"Accesibilidad: contraste de los botones", "Consulta 1057"},
                 {"Asesoramiento telefónico", ""}}},
};

constexpr SampleTexts dutch = {
    .business = {"Studio Waterlijn B.V.", "Oudegracht 112", "3511 AX", "Utrecht", "", "NL", "NL123456789B01"},
    .homeClient = {"Bakkerij Van den Berg B.V.", "Haven 7", "1011 AB", "Amsterdam", "", "NL", "NL987654321B01"},
    .foreignClient = {"Nordwind Energie AG", "Hafenstraße 3", "20457", "Hamburg", "", "DE", "DE987654321"},
    .currencyCode = "EUR",
    .standardRate = 2100,
    .reducedRate = 900,
    .phone = "+31 30 123 4567",
    .email = "hallo@waterlijn.example",
    .website = "www.waterlijn.example",
    .taxID = "",
    .bankName = "Voorbeeldbank, Utrecht",
    .iban = "NL91ABNA0417164300",
    .bic = "ABNANL2AXXX",
    .footerNote = "KvK Utrecht 12345678 · Directeur: Sanne de Vries",
    .invoiceTitle = "Vernieuwing van de website",
    .invoiceIntro = "Geachte mevrouw Van den Berg,\nhartelijk dank voor uw opdracht. Zoals afgesproken brengen wij in "
                    "rekening:",
    .invoiceOutro = "Hartelijk dank voor de prettige samenwerking.\n\nMet vriendelijke groet,\nSanne de Vries",
    .quoteTitle = "Een nieuwe huisstijl voor studio Negev",
    .quoteIntro =
        "Geachte heer Levi,\nhartelijk dank voor het goede gesprek in **Utrecht**. Dit is ons voorstel voor de "
        "besproken stappen:",
    .quoteOutro =
        "De prijs geldt voor het beschreven werk:\n- twee correctierondes zijn inbegrepen\n- reiskosten berekenen "
        "wij naar werkelijkheid\n\nWij horen graag van u.",
    .creditIntro =
        "Geachte mevrouw Van den Berg,\ndrie handboeken kwamen onbeschadigd terug en één trainingsdag ging niet "
        "door. Beide crediteren wij:",
    .supportTitle = "Ondersteuning en onderhoud",
    .reverseChargeNote = "Btw verlegd: de btw wordt door de afnemer voldaan.",
    .discountTitle = "Klantenkorting",
    .feeTitle = "Spoedlevering",
    .design = {"Concept en vormgeving",
               "Startpagina, rubrieken en formulieren\n- twee ontwerpen\n- één correctieronde"},
    .build = {"Bouw", "Voor alle schermen, toegankelijk, op echte apparaten gemeten"},
    .templates = {"Paginasjablonen", ""},
    .editor = {"Redactiesysteem, ingericht en gevuld", ""},
    .handbook = {"Handboek, gedrukt", "A5, genaaid gebonden, 64 pagina's"},
    .training = {"Training van het team op locatie", "Twee dagdelen in Amsterdam, *voor maximaal acht personen*"},
    .hosting = {"Domein en hosting", "Maart 2026 tot en met februari 2027"},
    .optionHeading = {"Opties", "Niet in het totaal begrepen; een regel per e-mail volstaat"},
    .option = {"Foto's van ruimtes en mensen", "Eén dag met fotograaf, alle rechten inbegrepen"},
    .support = {{{"Bijwerken van het redactiesysteem", "Versie 11.4, eerst op de kopie getest"},
                 {"Formulier: bezorgadres hersteld", "Melding 1042"},
                 {"Nieuwsbrief, opmaak en verzending", ""},
                 {"Onderzoek naar laadtijden", "Afbeeldingen van de productpagina's verkleind"},
                 {"Toegankelijkheid: contrast van knoppen", "Melding 1057"},
                 {"Telefonisch advies", ""}}},
};

constexpr SampleTexts italian = {
    .business = {"Studio Ponente S.r.l.", "Via Po 24", "10123", "Torino", "TO", "IT", "IT12345678901"},
    .homeClient = {"Cantine Colle Verde S.p.A.", "Via Roma 5", "53100", "Siena", "SI", "IT", "IT98765432109"},
    .foreignClient = {"Éditions du Phare SAS", "21 quai de la Douane", "29200", "Brest", "", "FR", "FR98765432109"},
    .currencyCode = "EUR",
    .standardRate = 2200,
    .reducedRate = 1000,
    .phone = "+39 011 000 0000",
    .email = "ciao@ponente.example",
    .website = "www.ponente.example",
    .taxID = "12345678901",
    .bankName = "Banca Esempio, Torino",
    .iban = "IT60X0542811101000000123456",
    .bic = "BLOPIT22XXX",
    .footerNote = "Capitale sociale € 10.000 i.v. · REA TO-1234567 · Amministratrice: Chiara Ponente",
    .invoiceTitle = "Rinnovo del sito web",
    .invoiceIntro = "Gentile signora,\ngrazie per il Suo ordine. Come concordato, fatturiamo quanto segue:",
    .invoiceOutro = "Grazie per la piacevole collaborazione.\n\nCordiali saluti\nChiara Ponente",
    .quoteTitle = "Una nuova immagine per lo studio Negev",
    .quoteIntro = "Gentile signor Levi,\ngrazie per il bell'incontro a **Torino**. Ecco la nostra proposta per i passi "
                  "concordati:",
    .quoteOutro = "Il prezzo vale per quanto descritto:\n- due giri di correzioni sono compresi\n- le trasferte si "
                  "fatturano al costo\n\nRestiamo a Sua disposizione.",
    .creditIntro =
        "Gentile signora,\ntre manuali sono tornati integri e una giornata di formazione non si è tenuta. Le "
        "accreditiamo entrambi:",
    .supportTitle = "Assistenza e manutenzione",
    .reverseChargeNote = "Inversione contabile: l'IVA è dovuta dal committente.",
    .discountTitle = "Sconto fedeltà",
    .feeTitle = "Consegna espressa",
    .design = {"Ideazione e grafica", "Pagina iniziale, sezioni e moduli\n- due bozze\n- un giro di correzioni"},
    .build = {"Realizzazione", "Per tutti gli schermi, accessibile, misurata su dispositivi reali"},
    .templates = {"Modelli di pagina", ""},
    .editor = {"Sistema editoriale, installato e popolato", ""},
    .handbook = {"Manuale stampato", "A5, cucito a filo, 64 pagine"},
    .training = {"Formazione del gruppo in sede", "Due mezze giornate a Siena, *fino a otto persone*"},
    .hosting = {"Dominio e hosting", "Da marzo 2026 a febbraio 2027"},
    .optionHeading = {"Opzioni", "Non comprese nel totale; basta una riga per email"},
    .option = {"Fotografie di ambienti e persone", "Una giornata con fotografo, tutti i diritti compresi"},
    .support = {{{"Aggiornamento del sistema editoriale", "Versione 11.4, provata prima sulla copia"},
                 {"Modulo: indirizzo di consegna corretto", "Richiesta 1042"},
                 {"Newsletter, impaginazione e invio", ""},
                 {"Analisi dei tempi di caricamento", "Immagini dei prodotti ridotte"},
                 {"Accessibilità: contrasto dei pulsanti", "Richiesta 1057"},
                 {"Consulenza telefonica", ""}}},
};

} // namespace

const SampleTexts& sampleTexts(DocumentLanguage language)
{
    switch (language) {
    case DocumentLanguage::english:
        return english;
    case DocumentLanguage::german:
        return german;
    case DocumentLanguage::french:
        return french;
    case DocumentLanguage::spanish:
        return spanish;
    case DocumentLanguage::dutch:
        return dutch;
    case DocumentLanguage::italian:
        return italian;
    }
    return english;
}

} // namespace Quillary
