#pragma once

#include <QDateTime>

// The one door to the time of day.
class Clock {
  public:
    virtual ~Clock() = default;
    virtual QDateTime adesso() const = 0;
    QDate oggi() const { return adesso().date(); }
};

// The clock in force: the system's, until another is set (a null pointer puts the system's back).
const Clock& orologio();
void impostaOrologio(const Clock* orologio);
