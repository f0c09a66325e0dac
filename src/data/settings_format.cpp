#include "data/settings_format.h"

#include <algorithm>
#include <optional>

#include <QFileDevice>
#include <QStringDecoder>

namespace {

bool blanco(QChar c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\f';
}

QStringView senzaBlanchi(QStringView testo) {
    while (!testo.isEmpty() && blanco(testo.front())) {
        testo = testo.mid(1);
    }
    while (!testo.isEmpty() && blanco(testo.back())) {
        testo.chop(1);
    }
    return testo;
}

bool controllo(QChar c) {
    return c < QChar(0x20) || c == QChar(0x7f);
}

int cifraEsadecimale(QChar c) {
    if (c >= '0' && c <= '9') return c.unicode() - '0';
    const char16_t minuscola = c.unicode() | 0x20;
    return minuscola >= 'a' && minuscola <= 'f' ? minuscola - 'a' + 10 : -1;
}

// ---- Values

bool surrogatoSolo(QStringView testo, qsizetype i) {
    if (!testo[i].isSurrogate()) return false;
    if (testo[i].isHighSurrogate()) return i + 1 >= testo.size() || !testo[i + 1].isLowSurrogate();
    return i == 0 || !testo[i - 1].isHighSurrogate();
}

bool staDaSolo(QStringView valore) {
    if (valore.isEmpty()) return true;
    if (valore.front().isSpace() || valore.back().isSpace() || valore.front() == '"') return false;
    for (qsizetype i = 0; i < valore.size(); ++i) {
        if (controllo(valore[i]) || surrogatoSolo(valore, i)) return false;
    }
    return true;
}

QString traVirgolette(QStringView valore) {
    QString testo = "\"";
    bool dopoEsadecimale = false;
    for (qsizetype i = 0; i < valore.size(); ++i) {
        const QChar c = valore[i];
        // The digits of \x have no end mark: a hexadecimal digit behind them is escaped as well.
        const bool esadecimale = surrogatoSolo(valore, i) ||
                                 (controllo(c) && c != '\n' && c != '\r' && c != '\t') ||
                                 (dopoEsadecimale && cifraEsadecimale(c) >= 0);
        if (esadecimale) {
            testo += "\\x" + QString::number(c.unicode(), 16);
        } else if (c == '\n') {
            testo += "\\n";
        } else if (c == '\r') {
            testo += "\\r";
        } else if (c == '\t') {
            testo += "\\t";
        } else {
            if (c == '"' || c == '\\') testo += '\\';
            testo += c;
        }
        dopoEsadecimale = esadecimale;
    }
    return testo + '"';
}

// The character of the escape whose letter is at `i`, which moves to its last place; nothing when the text
// is no escape.
std::optional<QChar> carattereProtetto(QStringView testo, qsizetype& i) {
    switch (testo[i].unicode()) {
        case 'n':
            return QChar('\n');
        case 'r':
            return QChar('\r');
        case 't':
            return QChar('\t');
        case '"':
        case '\\':
            return testo[i];
        case 'x':
            break;
        default:
            return std::nullopt;
    }
    uint codice = 0;
    const qsizetype prima = i;
    while (i + 1 < testo.size() && cifraEsadecimale(testo[i + 1]) >= 0 && codice <= 0xfff) {
        codice = codice * 16 + static_cast<uint>(cifraEsadecimale(testo[++i]));
    }
    if (i == prima) return std::nullopt;
    return QChar(static_cast<char16_t>(codice));
}

// The text between quotes with its escapes undone; nothing when the quotes or escapes do not hold.
std::optional<QString> senzaProtezioni(QStringView interno) {
    QString valore;
    for (qsizetype i = 0; i < interno.size(); ++i) {
        if (interno[i] == '"') return std::nullopt;
        if (interno[i] != '\\') {
            valore += interno[i];
            continue;
        }
        if (++i == interno.size()) return std::nullopt;
        const auto c = carattereProtetto(interno, i);
        if (!c) return std::nullopt;
        valore += *c;
    }
    return valore;
}

// Nothing for a value whose closing quote is lost.
std::optional<QString> leggiValore(QStringView testo) {
    if (!testo.startsWith('"')) return testo.toString();
    if (testo.count(u'"') == 1) return std::nullopt;
    if (!testo.endsWith('"')) return testo.toString();
    const QStringView interno = testo.mid(1, testo.size() - 2);
    if (auto valore = senzaProtezioni(interno)) return valore;
    // Quoted by hand, with backslashes that stand for themselves.
    return interno.contains('"') ? testo.toString() : interno.toString();
}

// ---- Names of sections and keys: "%XX" and "%UXXXX" for what is not a letter or a digit

QString proteggiNome(QStringView nome) {
    QString testo;
    for (const QChar c : nome) {
        const bool semplice =
            c.unicode() < 0x80 ? c.isLetterOrNumber() : c.isLetterOrNumber() && !c.isSurrogate();
        if (semplice || c == '_' || c == '-' || c == '.') {
            testo += c;
        } else if (c.unicode() < 0x100) {
            testo += '%' + QString::number(c.unicode(), 16).rightJustified(2, '0').toUpper();
        } else {
            testo += "%U" + QString::number(c.unicode(), 16).rightJustified(4, '0').toUpper();
        }
    }
    return testo;
}

std::optional<QChar> daEsadecimale(QStringView cifre, qsizetype quante) {
    if (cifre.size() != quante) return std::nullopt;
    uint codice = 0;
    for (const QChar c : cifre) {
        if (cifraEsadecimale(c) < 0) return std::nullopt;
        codice = codice * 16 + static_cast<uint>(cifraEsadecimale(c));
    }
    return QChar(static_cast<char16_t>(codice));
}

QString leggiNome(QStringView testo) {
    QString nome;
    for (qsizetype i = 0; i < testo.size(); ++i) {
        if (testo[i] != '%') {
            nome += testo[i];
        } else if (const auto lungo = daEsadecimale(testo.mid(i + 2, 4), 4);
                   lungo && testo.mid(i + 1).startsWith('U')) {
            nome += *lungo;
            i += 5;
        } else if (const auto breve = daEsadecimale(testo.mid(i + 1, 2), 2)) {
            nome += *breve;
            i += 2;
        } else {
            nome += '%';
        }
    }
    return nome;
}

// Files of other programs call the keys without a section "General", and a section of that name "%General".
const char* const sezioneVuota = "General";

QString scriviSezione(QStringView sezione) {
    const QString nome = proteggiNome(sezione);
    return nome.compare(sezioneVuota, Qt::CaseInsensitive) == 0 ? '%' + nome : nome;
}

QString leggiSezione(QStringView testo) {
    if (testo.compare(QLatin1String(sezioneVuota), Qt::CaseInsensitive) == 0) return {};
    if (testo.startsWith('%') &&
        testo.mid(1).compare(QLatin1String(sezioneVuota), Qt::CaseInsensitive) == 0) {
        return testo.mid(1).toString();
    }
    return leggiNome(testo);
}

// ---- The file

// UTF-8, or Latin-1 when it is not valid as such: an old editor's file.
QString decodifica(const QByteArray& contenuto) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString testo = utf8(contenuto);
    return utf8.hasError() ? QString::fromLatin1(contenuto) : testo;
}

bool testoSemplice(const QByteArray& contenuto) {
    return std::none_of(contenuto.begin(), contenuto.end(), [](char c) {
        return controllo(QChar(QLatin1Char(c))) && c != '\n' && c != '\r' && c != '\t' && c != '\f';
    });
}

bool aggiungiVoce(QStringView riga, const QString& sezione, QSettings::SettingsMap& voci) {
    const auto uguale = riga.indexOf(u'=');
    if (uguale < 0) return false;
    // Other programs write a slash in a key as a backslash.
    const QString chiave = leggiNome(senzaBlanchi(riga.left(uguale)).toString().replace('\\', '/'));
    const auto valore = leggiValore(senzaBlanchi(riga.mid(uguale + 1)));
    if (chiave.isEmpty() || !valore) return false;
    voci.insert(sezione.isEmpty() ? chiave : sezione + '/' + chiave, *valore);
    return true;
}

bool leggiFile(QIODevice& file, QSettings::SettingsMap& voci) {
    LetturaImpostazioni lettura = analizzaImpostazioni(file.readAll());
    voci = std::move(lettura.voci);
    return lettura.leggibile;
}

}  // namespace

LetturaImpostazioni analizzaImpostazioni(const QByteArray& contenuto) {
    LetturaImpostazioni lettura;
    if (contenuto.size() > dimensioneMassimaImpostazioni || !testoSemplice(contenuto)) {
        lettura.leggibile = false;
        return lettura;
    }
    const QString testo = decodifica(contenuto);
    QString sezione;
    for (const QStringView intera : QStringView(testo).split('\n')) {
        const QStringView riga = senzaBlanchi(intera);
        if (riga.isEmpty() || riga.startsWith(';') || riga.startsWith('#')) continue;
        if (riga.startsWith('[') && riga.endsWith(']')) {
            sezione = leggiSezione(senzaBlanchi(riga.mid(1, riga.size() - 2)));
        } else if (riga.startsWith('[') || !aggiungiVoce(riga, sezione, lettura.voci)) {
            ++lettura.righeScartate;
        }
    }
    return lettura;
}

QByteArray componiImpostazioni(const QSettings::SettingsMap& voci) {
    QString radice;
    QMap<QString, QString> sezioni;
    for (auto voce = voci.begin(); voce != voci.end(); ++voce) {
        const auto barra = voce.key().indexOf('/');
        const QString valore = voce.value().toString();
        const QString riga = proteggiNome(QStringView(voce.key()).mid(barra + 1)) + '=' +
                             (staDaSolo(valore) ? valore : traVirgolette(valore)) + '\n';
        (barra < 0 ? radice : sezioni[voce.key().left(barra)]) += riga;
    }
    QString testo = radice;
    for (auto sezione = sezioni.begin(); sezione != sezioni.end(); ++sezione) {
        testo += (testo.isEmpty() ? "[" : "\n[") + scriviSezione(sezione.key()) + "]\n" + sezione.value();
    }
    return testo.toUtf8();
}

// The save file of Qt 6.4 takes a write that a full disk cut short for a good one: the flush tells.
bool scriviImpostazioni(QIODevice& file, const QSettings::SettingsMap& voci) {
    const QByteArray contenuto = componiImpostazioni(voci);
    if (file.write(contenuto) != contenuto.size()) return false;
    auto* suDisco = qobject_cast<QFileDevice*>(&file);
    return suDisco == nullptr || suDisco->flush();
}

QSettings::Format formatoImpostazioni() {
    static const QSettings::Format formato = QSettings::registerFormat("ini", leggiFile, scriviImpostazioni);
    return formato;
}
