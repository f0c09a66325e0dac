#pragma once

#include <QString>

// The disk behind files that have to outlive a power cut.
class Disco {
  public:
    virtual ~Disco() = default;
    // What was written to that open file is on the disk when it returns; false when that is not known.
    virtual bool scarica(int file);
    // The same of the names in the folder of that file, after it was made, renamed or removed: a file whose
    // name is lost is lost with it.
    virtual bool scaricaCartellaDi(const QString& file);
};

// The one in force: the machine's own, unless another is set.
Disco& disco();
void impostaDisco(Disco* disco);
