#pragma once

#include <functional>

#include <QLocalServer>
#include <QString>

// One client for each program and settings folder. The first start holds a lock that the system itself drops
// when the process dies, however it dies; a later one asks the first to come to the front, and ends.
class SingleInstance {
  public:
    // `cartella` holds the settings, and the lock beside them.
    explicit SingleInstance(QString cartella);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    // True for the first one, which then hears later starts through `alRichiamo`. Otherwise the first one
    // has been called: it may not have answered.
    bool prima(std::function<void()> alRichiamo);

  private:
    bool blocca();
    void ascolta();
    void chiama();

    QString mCartella;
    QString mChiave;  // of program and settings folder
    QString mCanale;  // where the first one listens
    int mBlocco = -1;
    QLocalServer mServer;
    std::function<void()> mAlRichiamo;
};
