#pragma once

#include <gtest/gtest.h>

#include <QStringList>

#include "data/sqlite_connection.h"
#include "doubles/child_process.h"

// Another program on a file archive, in a process of its own: it opens the archive, runs some statements, and
// ends with a COMMIT when it is told to. The calling process must have no connection to the file meanwhile:
// SQLite's locks are those of a process.
class AltroProgramma {
  public:
    AltroProgramma(const QString& percorso, const QStringList& istruzioni) {
        EXPECT_EQ(pipe(mPronto), 0);
        EXPECT_EQ(pipe(mBasta), 0);
        mProcesso = avviaFiglio([&] { return lavora(percorso, istruzioni); });
        close(mBasta[0]);
        close(mPronto[1]);
        char segno = 0;
        EXPECT_EQ(read(mPronto[0], &segno, 1), 1) << "the other program did not come so far";
    }
    ~AltroProgramma() {
        if (mProcesso > 0) lascia();
        close(mPronto[0]);
    }
    AltroProgramma(const AltroProgramma&) = delete;
    AltroProgramma& operator=(const AltroProgramma&) = delete;

    // It has ended, and well.
    void lascia() {
        close(mBasta[1]);
        EXPECT_EQ(attendiFiglio(std::exchange(mProcesso, -1)), 0);
    }

  private:
    // Until the pipe closes, be it because the test has died.
    int lavora(const QString& percorso, const QStringList& istruzioni) const {
        close(mBasta[1]);
        ErroreServer errore;
        const auto archivio = SqliteConnection::apri(percorso, errore);
        if (!archivio) return 1;
        Recordset righe;
        for (const QString& sql : istruzioni) {
            if (!archivio->eseguiNativo(sql, &righe)) return 2;
        }
        char segno = 0;
        if (write(mPronto[1], &segno, 1) != 1 || read(mBasta[0], &segno, 1) != 0) return 3;
        return archivio->eseguiNativo("COMMIT") ? 0 : 4;
    }

    int mPronto[2] = {};
    int mBasta[2] = {};
    pid_t mProcesso = -1;
};
