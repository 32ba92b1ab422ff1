#include "modem/ModemLink.h"

namespace {

constexpr milliseconds kLineInterval = 1000ms;

} // namespace

ModemLink::ModemLink(Clock &clock, const Host &host, Operator &person, SerialPort &MSComm1,
                     TcpSocket &Winsock1, ModemView &view, Module1 &module, Recordsets &recordsets)
    : line(clock, module, MSComm1, Winsock1, view),
      TimerCom(clock.timer([this] { watcher.timerComTick(); })),
      pace(clock, flags, [this] { watcher.timerSendTick(); }),
      initialiser(clock, module, flags, recordsets, line, pace, *TimerCom, view, person),
      submitter(clock, module, flags, line, *TimerCom, view, tables),
      queue(clock, module, flags, recordsets, submitter, pace, *TimerCom),
      watcher(clock, module, flags, recordsets, line, response, queue, pace, *TimerCom, view,
              person),
      selection(clock, host, person, MSComm1, Winsock1, view, module, line, initialiser)
{
    TimerCom->setInterval(kLineInterval);
    watcher.SetUpAgain = [this] { return initialiser.setUpAgain(); };
}

ModemLink::~ModemLink()
{
    TimerCom->setEnabled(false);
    pace.stop();
}
