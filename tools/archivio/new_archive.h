#pragma once

#include <memory>

#include "archivio/archive_name.h"
#include "archivio/row_writer.h"

class Archivio;

// An archive in the making. Until it is delivered no till works on it: a file is made beside its place and
// moved there, a database is marked as incomplete (data/archive_version.h). One that is given up leaves the
// file that stood there as it was, and a database that the next making begins anew.
class NuovoArchivio {
  public:
    // Makes the tables. An archive that stands there already is refused unless it may be replaced; one that
    // was never completed may. Refusals raise RunTimeError 9999 with a text for the person.
    static std::unique_ptr<NuovoArchivio> inizia(const NomeArchivio& nome, bool sovrascrivi);

    virtual ~NuovoArchivio() = default;

    virtual Archivio& archivio() = 0;
    virtual Scrittore& scrittore() = 0;
    // Checks the references between the rows and puts the archive in force. References to nothing raise
    // RunTimeError 9999, naming them.
    void consegna();

  protected:
    // What is left to do before the references can be checked, and after.
    virtual void completa() = 0;
    virtual void mettiInForza() = 0;
};
