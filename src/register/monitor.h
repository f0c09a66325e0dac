#pragma once

#include <deque>
#include <functional>

#include <QString>

// What went over the register's wire, for a person to read. The oldest lines go when the text gets too long.
class MonitorRegCassa {
  public:
    // In bytes of the text held; a single longer line is cut.
    static constexpr qsizetype limite = 10 * 1024 * 1024;

    explicit MonitorRegCassa(qsizetype limiteByte = limite) : mLimite(limiteByte) {}

    // The tick "Monitor": without it only forced lines are kept.
    bool acceso() const { return mAcceso; }
    void acceso(bool acceso) { mAcceso = acceso; }

    void scriviMonitor(const QString& testo, bool forzata);
    const std::deque<QString>& righe() const { return mRighe; }
    // All lines, each ended by CR and LF.
    QString testo() const;
    qsizetype byte() const { return mByte; }

    // Told of each line as it is written, and how many old ones went for it.
    using Osservatore = std::function<void(const QString& riga, int tolte)>;
    void osserva(Osservatore osservatore) { mOsservatore = std::move(osservatore); }

  private:
    qsizetype mLimite;
    qsizetype mByte = 0;
    std::deque<QString> mRighe;
    bool mAcceso = false;
    Osservatore mOsservatore;
};
