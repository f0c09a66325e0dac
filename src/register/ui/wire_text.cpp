#include "register/ui/wire_text.h"

#include <QFont>
#include <QPlainTextEdit>

QString abbreviato(QString testo, qsizetype massimo) {
    if (testo.size() <= massimo) return testo;
    testo.truncate(massimo);
    return testo + u'\u2026';
}

QPlainTextEdit* testoDelFilo(const QString& nome, const QString& nomeAccessibile, QWidget* genitore) {
    auto* testo = new QPlainTextEdit(genitore);
    testo->setObjectName(nome);
    testo->setAccessibleName(nomeAccessibile);
    testo->setReadOnly(true);
    testo->setTabChangesFocus(true);
    testo->setUndoRedoEnabled(false);
    QFont carattere("Courier New");
    carattere.setStyleHint(QFont::TypeWriter);
    testo->setFont(carattere);
    return testo;
}
