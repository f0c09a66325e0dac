#include "register/fake_socket.h"
#include "register/interface_link.h"
#include "register/memory_growth.h"
#include "register/ui/frmRegCassa.h"

// A monitor that somebody looks at keeps its lines within the limit too.
TEST(MonitorMemory, VisibleMonitorDoesNotGrow) {
    InterfacciaRegCassa link{std::make_unique<PresaFinta>()};
    frmRegCassa finestra(link);
    finestra.mostra();
    const QString riga(3900, u'x');
    const auto scrivi = [&](int righe) {
        for (int i = 0; i < righe; ++i) {
            link.monitor.scriviMonitor(riga, true);
        }
    };
    while (link.monitor.byte() < MonitorRegCassa::limite * 9 / 10) {
        scrivi(100);
    }
    EXPECT_LT(crescita([&] { scrivi(100); }), 4 * megabyte);
}
