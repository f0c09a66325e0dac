#include "faults/cutting_proxy.h"

#include <algorithm>
#include <arpa/inet.h>
#include <poll.h>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace {

sockaddr_in indirizzo(int porta) {
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    a.sin_port = htons(static_cast<uint16_t>(porta));
    return a;
}

const sockaddr* generico(const sockaddr_in& a) {
    return reinterpret_cast<const sockaddr*>(&a);
}

bool scrivi(int presa, const char* dati, ssize_t quanti) {
    while (quanti > 0) {
        const ssize_t scritti = send(presa, dati, static_cast<size_t>(quanti), MSG_NOSIGNAL);
        if (scritti <= 0) return false;
        dati += scritti;
        quanti -= scritti;
    }
    return true;
}

constexpr int attesa = 20;  // between two looks at whether the end has come, in milliseconds

}  // namespace

// Both ends of one connection.
struct LineaTagliabile::Coppia {
    int cassa;
    int server;
    bool taciRisposta = false;  // the next answer is lost, and the line with it
};

struct LineaTagliabile::Coppie : std::vector<Coppia> {};

LineaTagliabile::LineaTagliabile(int portaServer)
    : mPortaServer(portaServer), mAscolto(socket(AF_INET, SOCK_STREAM, 0)), mCoppie(new Coppie) {
    sockaddr_in a = indirizzo(0);
    socklen_t lunghezza = sizeof a;
    if (bind(mAscolto, generico(a), lunghezza) != 0 || listen(mAscolto, 16) != 0 ||
        getsockname(mAscolto, reinterpret_cast<sockaddr*>(&a), &lunghezza) != 0) {
        throw std::runtime_error("no port for the proxy");
    }
    mPorta = ntohs(a.sin_port);
    mFilo = std::thread([this] { servi(); });
}

LineaTagliabile::~LineaTagliabile() {
    mFine = true;
    mFilo.join();
    for (const Coppia& coppia : *mCoppie) {
        close(coppia.cassa);
        close(coppia.server);
    }
    close(mAscolto);
    delete mCoppie;
}

void LineaTagliabile::guasta(Guasto guasto, bool restaInterrotta) {
    mRestaInterrotta = restaInterrotta;
    mAccaduto = false;
    mGuasto = guasto;
}

void LineaTagliabile::accetta() {
    const int cassa = accept(mAscolto, nullptr, nullptr);
    if (cassa < 0) return;
    const int server = socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in a = indirizzo(mPortaServer);
    if (mInterrotta || connect(server, generico(a), sizeof a) != 0) {
        close(cassa);
        close(server);
        return;
    }
    mCoppie->push_back({cassa, server});
}

// What the till says; false when the line is cut there.
bool LineaTagliabile::taglia(Coppia& coppia, const char* dati, long quanti) {
    const std::string_view testo(dati, static_cast<size_t>(quanti));
    if (mGuasto == Guasto::Nessuno || testo.find("COMMIT") == std::string_view::npos) return false;
    const Guasto guasto = mGuasto.exchange(Guasto::Nessuno);
    mAccaduto = true;
    mInterrotta = mRestaInterrotta.load();
    if (guasto == Guasto::PrimaDelCommit) return true;
    coppia.taciRisposta = true;
    return false;
}

// One portion in one direction; false when the connection has ended.
bool LineaTagliabile::passa(Coppia& coppia, int da) {
    char dati[65536];
    const ssize_t quanti = recv(da, dati, sizeof dati, 0);
    if (quanti <= 0) return false;
    if (da == coppia.cassa) return !taglia(coppia, dati, quanti) && scrivi(coppia.server, dati, quanti);
    return !coppia.taciRisposta && scrivi(coppia.cassa, dati, quanti);
}

void LineaTagliabile::servi() {
    while (!mFine) {
        std::vector<pollfd> prese{{mAscolto, POLLIN, 0}};
        for (const Coppia& coppia : *mCoppie) {
            prese.push_back({coppia.cassa, POLLIN, 0});
            prese.push_back({coppia.server, POLLIN, 0});
        }
        if (poll(prese.data(), prese.size(), attesa) <= 0) continue;
        std::erase_if(*mCoppie, [&, i = size_t{0}](Coppia& coppia) mutable {
            const bool detto[] = {prese[1 + 2 * i].revents != 0, prese[2 + 2 * i].revents != 0};
            ++i;
            // A dead line takes its other connections along; the server still gets the commit on its own.
            const bool portata = !mInterrotta || coppia.taciRisposta;
            const bool viva = portata && (!detto[0] || passa(coppia, coppia.cassa)) &&
                              (!detto[1] || passa(coppia, coppia.server));
            if (viva) return false;
            close(coppia.cassa);
            close(coppia.server);
            return true;
        });
        if (prese[0].revents != 0) accetta();
    }
}
