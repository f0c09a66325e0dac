#include <gtest/gtest.h>

#include "register/monitor.h"

TEST(Monitor, LinesAreKeptOnlyWhileItIsOn) {
    MonitorRegCassa monitor;
    monitor.scriviMonitor("SND: a", false);
    monitor.acceso(true);
    monitor.scriviMonitor("SND: b", false);
    EXPECT_EQ(monitor.testo(), "SND: b\r\n");
}

TEST(Monitor, ForcedLinesAreAlwaysKept) {
    MonitorRegCassa monitor;
    monitor.scriviMonitor("INF: Connessione Aperta", true);
    EXPECT_EQ(monitor.testo(), "INF: Connessione Aperta\r\n");
}

TEST(Monitor, MarksAreWrittenByName) {
    MonitorRegCassa monitor;
    monitor.scriviMonitor("REC: \x06\x15\x02\x03", true);
    EXPECT_EQ(monitor.testo(), "REC: <ACK><NAK><STX><ETX>\r\n");
}

TEST(Monitor, OldestLinesGoWhenTheTextIsFull) {
    MonitorRegCassa monitor(24);  // two lines of four characters and their end
    int tolte = 0;
    monitor.osserva([&](const QString&, int n) { tolte += n; });
    for (const char* riga : {"aaaa", "bbbb", "cccc"}) {
        monitor.scriviMonitor(riga, true);
    }
    EXPECT_EQ(monitor.testo(), "bbbb\r\ncccc\r\n");
    EXPECT_EQ(tolte, 1);
}

TEST(Monitor, NeverGrowsBeyondItsLimit) {
    MonitorRegCassa monitor;
    for (int i = 0; i < 300; ++i) {
        monitor.scriviMonitor(QString(100000, u'x'), true);
        ASSERT_LE(monitor.byte(), MonitorRegCassa::limite);
    }
    EXPECT_GT(monitor.byte(), MonitorRegCassa::limite - 300000);
}

TEST(Monitor, OneLineLongerThanTheLimitIsCut) {
    MonitorRegCassa monitor(24);
    monitor.scriviMonitor(QString(100, u'x'), true);
    EXPECT_EQ(monitor.testo(), QString(10, u'x') + "\r\n");
}
