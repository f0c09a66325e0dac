#pragma once

#include <QDate>

#include "postings/lost_commit.h"
#include "sale/flxvb.h"
#include "sale/uncertain_save.h"

// What a save has put into the header.
struct TestataScritta {
    int progressivo = 0;
    int tipo = -1;  // TipoDocumenti
    int idPagamento = -1;
    int idControparte = -1;  // below 1: none
    QDate data;
};

QString descriviTestata(const TestataScritta& testata);
// What the grid's rows wrote, in the states in which they were saved.
RigheSalvate descriviRighe(const FlexVB& griglia);

// Whether the save is in the books. Reads Movimenti and DettagliMovimento.
EsitoCommit cercaSalvataggio(OperatorPort& operatore, const SalvataggioIncerto& salvataggio);
