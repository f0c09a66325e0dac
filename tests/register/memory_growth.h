#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include <QFile>

#ifdef __SANITIZE_ADDRESS__
// Of the sanitizer's run time; the compiler comes without the header that declares it.
extern "C" size_t __sanitizer_get_current_allocated_bytes();
#endif

// Bytes in use. The sanitizer keeps what was freed for a while, but counts what was not.
inline qint64 inUso() {
#ifdef __SANITIZE_ADDRESS__
    return static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
#else
    malloc_trim(0);
    QFile stato("/proc/self/statm");
    EXPECT_TRUE(stato.open(QIODevice::ReadOnly));
    return stato.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
#endif
}

// What ten further runs add to a first one that has filled what has a limit.
inline qint64 crescita(const std::function<void()>& prova) {
    prova();
    const qint64 prima = inUso();
    for (int i = 0; i < 10; ++i) {
        prova();
    }
    const qint64 aggiunta = inUso() - prima;
    testing::Test::RecordProperty("bytes", std::to_string(aggiunta));
    return aggiunta;
}

constexpr qint64 megabyte = 1 << 20;
