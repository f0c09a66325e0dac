#include "kit/CTextBox.h"

#include <QDate>

#include "core/format.h"
#include "core/numbers.h"

CTextBox* mTextBoxCorrente = nullptr;

namespace {

constexpr char16_t tastoInvio = u'\r';
constexpr char16_t tastoCancella = u'\b';
// Character 46: the key code of Delete taken as a character, so a point passes in every typed box.
constexpr char16_t tastoPunto = u'.';

// Letters to a date in the order day, month, year; an invalid one when they are no date.
QDate dataDa(QStringView giorno, QStringView mese, QStringView anno) {
    const int aa = anno.toInt();
    const int secolo = anno.size() > 2 ? 0 : (aa < 30 ? 2000 : 1900);
    return QDate(aa + secolo, mese.toInt(), giorno.toInt());
}

bool soloCifre(QStringView testo) {
    return !testo.isEmpty() &&
           std::all_of(testo.begin(), testo.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QDate leggiData(const QString& testo) {
    if (testo.contains('/')) {
        const auto parti = testo.split('/');
        if (parti.size() != 3 ||
            !std::all_of(parti.begin(), parti.end(), [](const QString& p) { return soloCifre(p); })) {
            return {};
        }
        return dataDa(parti[0], parti[1], parti[2]);
    }
    if ((testo.size() != 6 && testo.size() != 8) || !soloCifre(testo)) return {};
    const QStringView vista(testo);
    return dataDa(vista.mid(0, 2), vista.mid(2, 2), vista.mid(4));
}

}  // namespace

CTextBox::~CTextBox() {
    if (mTextBoxCorrente == this) mTextBoxCorrente = nullptr;
}

void CTextBox::txtBGColor(unsigned colore) {
    mColoreFondo = colore;
    mCampo.colori(mColoreFondo, mColoreTesto);
}

void CTextBox::txtForeColor(unsigned colore) {
    mColoreTesto = colore;
    mCampo.colori(mCampo.coloreFondo(), mColoreTesto);
}

void CTextBox::gotFocus() {
    mCampo.colori(mColoreFuoco, mColoreTesto);
    if (mTextBoxCorrente == this) return;
    selezionaTutto();
    mTextBoxCorrente = this;
}

void CTextBox::selezionaTutto() {
    if (mCasella != nullptr) mCasella->selezionaTutto();
}

void CTextBox::lostFocus() {
    mCampo.colori(mColoreFondo, mColoreTesto);
}

void CTextBox::validate() {
    if (!mUsaTastierino) formattaValore();
}

std::optional<QChar> CTextBox::keyPress(QChar tasto) {
    if (tasto != tastoInvio) return ammesso(tasto);
    if (mUsaTastierino) formattaValore();
    const bool avanti = !mCancelTabStep;
    mCancelTabStep = false;
    if (avanti && mCasella != nullptr) mCasella->tab();
    return std::nullopt;
}

std::optional<QChar> CTextBox::ammesso(QChar tasto) const {
    if (mTipo == Importo) {
        if (tasto == u'.') tasto = u',';
        if (tasto == u',' && mCampo.testo().contains(',')) return std::nullopt;
    }
    const bool cifra = tasto >= u'0' && tasto <= u'9';
    const bool sempre = cifra || tasto == tastoPunto || tasto == tastoCancella;
    switch (mTipo) {
        case Intero:
            return sempre ? std::optional(tasto) : std::nullopt;
        case Importo:
            return sempre || tasto == u',' ? std::optional(tasto) : std::nullopt;
        case Data:
            return sempre || tasto == u'/' ? std::optional(tasto) : std::nullopt;
        case Nessuno:
            break;
    }
    return tasto;
}

void CTextBox::addChar(const QString& carattere) {
    for (const QChar c : carattere) {
        const auto accettato = ammesso(c);
        if (!accettato) return;
        if (mCasella != nullptr) {
            mCasella->inserisci(QString(*accettato));
        } else {
            mCampo.testo(mCampo.testo() + *accettato);
        }
    }
    setLastPositionChar();
}

void CTextBox::setFocus() {
    if (mCasella != nullptr && mCampo.abilitato() && mCampo.visibile()) mCasella->prendiFuoco();
}

void CTextBox::setLastPositionChar() {
    if (mCasella != nullptr) mCasella->cursoreAllaFine();
}

void CTextBox::setLostFocus() {
    if (mCasella != nullptr) mCasella->tab();
}

void CTextBox::inviaInvio() {
    if (mCasella != nullptr) mCasella->invio();
}

QString CTextBox::formaData() const {
    return Format(leggiData(mCampo.testo().trimmed()), u"DD/MM/YYYY");
}

void CTextBox::formattaValore() {
    const QString& testo = mCampo.testo();
    switch (mTipo) {
        case Importo: {
            const QString modello = (mSepMigliaia ? "###,###0." : "###0.") + QString(mDecimali, '0');
            mCampo.testo(isNumeric(testo) ? Format(numeroDouble(testo), modello) : QString("0,00"));
            break;
        }
        case Intero:
            if (testo == "(auto)") break;
            mCampo.testo(isNumeric(testo) ? Format(numeroDouble(testo), mSepMigliaia ? u"###,###0" : u"###0")
                                          : QString("0"));
            break;
        case Data:
            mCampo.testo(formaData());
            break;
        case Nessuno:
            break;
    }
}
