#include "simulator/MessageLines.h"
#include "simulator/SimulatedModem.h"

#include <QByteArrayList>

namespace {

constexpr int kInvalidTextParameter = 305;
constexpr int kIncorrectParameters = 50; // of "+CME ERROR", 3GPP TS 27.007, 9.2.1

using Kind = AtCommand::Kind;

template <size_t N> QByteArray joined(const std::array<int, N> &values)
{
    QByteArrayList parts;
    for (const int value : values) {
        parts += QByteArray::number(value);
    }
    return parts.join(',');
}

} // namespace

// What a command does when it does more than say something. Basic commands without effect are
// those of a serial line that a simulated one has not.
const SimulatedModem::Row SimulatedModem::kRows[] = {
    {"E", &SimulatedModem::setEcho},
    {"Q", &SimulatedModem::setQuiet},
    {"V", &SimulatedModem::setVerbose},
    {"Z", &SimulatedModem::restoreSettings},
    {"&F", &SimulatedModem::factorySettings},
    {"&W", &SimulatedModem::storeSettings},
    {"+CMEE", &SimulatedModem::cmee},
    {"+CLIP", &SimulatedModem::clip},
    {"+CSDH", &SimulatedModem::csdh},
    {"+CMGF", &SimulatedModem::cmgf},
    {"+CSCS", &SimulatedModem::cscs},
    {"+CSCA", &SimulatedModem::csca},
    {"+CSMP", &SimulatedModem::csmp},
    {"+CNMI", &SimulatedModem::cnmi},
    {"+CPMS", &SimulatedModem::cpms},
    {"+CMGL", &SimulatedModem::cmgl},
    {"+CMGR", &SimulatedModem::cmgr},
    {"+CMGD", &SimulatedModem::cmgd},
    {"+CMGS", &SimulatedModem::cmgs},
    {"+CMGW", &SimulatedModem::cmgw},
    {nullptr, nullptr},
};

// Commands with one answer, or with none but "OK".
const SimulatedModem::Fixed SimulatedModem::kFixed[] = {
    {"I", Kind::Execute, "Lukora Simulated Modem"},
    {"\\Q", Kind::Execute, nullptr},
    {"&C", Kind::Execute, nullptr},
    {"&D", Kind::Execute, nullptr},
    {"&K", Kind::Execute, nullptr},
    {"&S", Kind::Execute, nullptr},
    {"H", Kind::Execute, nullptr},
    {"L", Kind::Execute, nullptr},
    {"M", Kind::Execute, nullptr},
    {"S", Kind::Set, nullptr},
    {"X", Kind::Execute, nullptr},
    {"+CGMI", Kind::Execute, "Lukora"},
    {"+CGMM", Kind::Execute, "Simulated Modem"},
    {"+CGMR", Kind::Execute, "1.0"},
    {"+CGSN", Kind::Execute, "001000000000019"},
    {"+GSN", Kind::Execute, "001000000000019"},
    {"+CIMI", Kind::Execute, "001010000000019"},
    {"+CSQ", Kind::Execute, "+CSQ: 21,0"},
    {"+CREG", Kind::Read, "+CREG: 0,1"},
    {"+CREG", Kind::Set, nullptr},
    {"+CPIN", Kind::Read, "+CPIN: READY"},
    {"+COPS", Kind::Read, "+COPS: 0,0,\"Lukora\""},
    {"+COPS", Kind::Set, nullptr},
    {"+CFUN", Kind::Read, "+CFUN: 1"},
    {"+CFUN", Kind::Set, nullptr},
    {"+CPAS", Kind::Execute, "+CPAS: 0"},
    {"+CSMS", Kind::Read, "+CSMS: 0,1,1,0"},
    {"+CSMS", Kind::Set, "+CSMS: 1,1,0"},
    {nullptr, Kind::Execute, nullptr},
};

SimulatedModem::Result SimulatedModem::fixed(const AtCommand &command)
{
    bool known = false;
    for (const Fixed *row = kFixed; row->name; ++row) {
        if (command.name != row->name) {
            continue;
        }
        known = true;
        if (command.kind == row->kind) {
            if (row->answer) {
                answer(row->answer);
            }
            return kOk;
        }
    }
    return known && command.kind == Kind::Test ? kOk : kError;
}

SimulatedModem::Result SimulatedModem::setEcho(const AtCommand &command)
{
    if (!faults_.echoStuck) {
        settings_.echo = command.arguments.toInt() != 0;
    }
    return kOk;
}

SimulatedModem::Result SimulatedModem::setQuiet(const AtCommand &command)
{
    settings_.quiet = command.arguments.toInt() != 0;
    return kOk;
}

SimulatedModem::Result SimulatedModem::setVerbose(const AtCommand &command)
{
    settings_.verbose = command.arguments.toInt() != 0;
    return kOk;
}

SimulatedModem::Result SimulatedModem::restoreSettings(const AtCommand &)
{
    settings_ = saved_;
    return kOk;
}

SimulatedModem::Result SimulatedModem::factorySettings(const AtCommand &)
{
    settings_ = Settings();
    return kOk;
}

SimulatedModem::Result SimulatedModem::storeSettings(const AtCommand &)
{
    saved_ = settings_;
    return kOk;
}

/// A setting that is one number from 0 up.
SimulatedModem::Result SimulatedModem::number(const AtCommand &command, int &value, int most)
{
    const auto values = atValues(command.arguments);
    switch (command.kind) {
    case Kind::Read:
        answer(command.name + ": " + QByteArray::number(value));
        return kOk;
    case Kind::Test:
        answer(command.name + ": (0-" + QByteArray::number(most) + ')');
        return kOk;
    case Kind::Set:
        if (values.size() == 1 && values[0].number().value_or(most + 1) <= most) {
            value = *values[0].number();
            return kOk;
        }
        break;
    case Kind::Execute:
        break;
    }
    return cme(kIncorrectParameters);
}

SimulatedModem::Result SimulatedModem::cmee(const AtCommand &command)
{
    return number(command, settings_.errors, 1);
}

SimulatedModem::Result SimulatedModem::clip(const AtCommand &command)
{
    return number(command, settings_.clip, 1);
}

SimulatedModem::Result SimulatedModem::csdh(const AtCommand &command)
{
    return number(command, settings_.details, 1);
}

SimulatedModem::Result SimulatedModem::cmgf(const AtCommand &command)
{
    if (command.kind == Kind::Read || command.kind == Kind::Test) {
        answer(command.kind == Kind::Read ? "+CMGF: 1" : "+CMGF: (1)");
        return kOk;
    }
    if (command.kind != Kind::Set || command.arguments != "1") {
        return kError;
    }
    settings_.text = true;
    return kOk;
}

SimulatedModem::Result SimulatedModem::cscs(const AtCommand &command)
{
    if (command.kind == Kind::Read || command.kind == Kind::Test) {
        answer(command.kind == Kind::Read ? "+CSCS: \"GSM\"" : "+CSCS: (\"GSM\")");
        return kOk;
    }
    const auto values = atValues(command.arguments);
    return values.size() == 1 && values[0].text.toUpper() == "GSM" ? kOk
                                                                   : cme(kIncorrectParameters);
}

SimulatedModem::Result SimulatedModem::csca(const AtCommand &command)
{
    if (command.kind == Kind::Read) {
        answer("+CSCA: \"" + serviceCentre_ + "\"," +
               addressType(QString::fromLatin1(serviceCentre_)));
        return kOk;
    }
    if (command.kind == Kind::Test) {
        return kOk;
    }
    const auto values = atValues(command.arguments);
    if (values.empty() || values[0].text.isEmpty()) {
        return cms(kInvalidTextParameter);
    }
    serviceCentre_ = values[0].text;
    return kOk;
}

SimulatedModem::Result SimulatedModem::csmp(const AtCommand &command)
{
    auto csmp = settings_.csmp;
    if (command.kind == Kind::Read) {
        answer("+CSMP: " + joined(csmp));
        return kOk;
    }
    if (command.kind == Kind::Test) {
        return kOk;
    }
    const auto values = atValues(command.arguments);
    if (values.empty() || values.size() > csmp.size()) {
        return cms(kInvalidTextParameter);
    }
    for (size_t i = 0; i < values.size(); ++i) {
        if (values[i].text.isEmpty()) {
            continue;
        }
        if (values[i].number().value_or(256) > 255) {
            return cms(kInvalidTextParameter);
        }
        csmp[i] = *values[i].number();
    }
    settings_.csmp = csmp;
    return kOk;
}

SimulatedModem::Result SimulatedModem::cnmi(const AtCommand &command)
{
    const int reports = faults_.refuseReports ? 0 : 2;
    if (command.kind == Kind::Read) {
        answer("+CNMI: " + joined(settings_.cnmi));
        return kOk;
    }
    if (command.kind == Kind::Test) {
        answer(reports == 0 ? "+CNMI: (0-2),(0,1),(0),(0),(0,1)"
                            : "+CNMI: (0-2),(0,1),(0),(0,2),(0,1)");
        return kOk;
    }
    const std::array<int, 5> most{2, 1, 0, reports, 1};
    const auto values = atValues(command.arguments);
    if (values.size() > most.size()) {
        return kError;
    }
    std::array<int, 5> cnmi{};
    for (size_t i = 0; i < values.size(); ++i) {
        cnmi[i] = values[i].text.isEmpty() ? 0 : values[i].number().value_or(most[i] + 1);
        if (cnmi[i] > most[i]) {
            return kError;
        }
    }
    // A report is kept or thrown away; none goes past the storage to the line.
    if (cnmi[3] == 1) {
        return kError;
    }
    settings_.cnmi = cnmi;
    return kOk;
}
