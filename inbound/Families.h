#pragma once

class Interpretation;

/// A kind of reply that the interpreter knows. Doors answer in free sentences, so a family is a
/// test for its phrases and the cutting that follows.
struct Family {
    /// Which records come to a family. Some kinds of record are no received message: the modem
    /// lists reports and messages that were stored to be sent as well.
    enum class Records { Received, All };

    bool (*applies)(const Interpretation &);
    void (*read)(Interpretation &);
    Records records;
};

// FamilyUserAdded.cpp
bool saysUserAdded(const Interpretation &record);
void readUserAdded(Interpretation &record);
// FamilyUserDeleted.cpp
bool saysUserDeleted(const Interpretation &record);
void readUserDeleted(Interpretation &record);
// FamilyDoorLog.cpp
bool saysDoorLog(const Interpretation &record);
void readDoorLog(Interpretation &record);
// FamilyUserList.cpp
bool saysUserList(const Interpretation &record);
void readUserList(Interpretation &record);
// FamilyAdministrators.cpp
bool saysAdministrators(const Interpretation &record);
void readAdministrators(Interpretation &record);
// FamilyWelcomeAdministrator.cpp
bool saysWelcomeAdministrator(const Interpretation &record);
void readWelcomeAdministrator(Interpretation &record);
// FamilyWelcomeAssistant.cpp
bool saysWelcomeAssistant(const Interpretation &record);
void readWelcomeAssistant(Interpretation &record);
// FamilyAdministratorHandedOn.cpp
bool saysAdministratorHandedOn(const Interpretation &record);
void readAdministratorHandedOn(Interpretation &record);
// FamilyDeliveryReport.cpp
bool saysDeliveryReport(const Interpretation &record);
void readDeliveryReport(Interpretation &record);

/// All families in their order. None excludes another: each tests what the family before it left
/// of the working text, and a text that passes several tests is acted upon several times.
inline constexpr Family kFamilies[] = {
    {saysUserAdded, readUserAdded, Family::Records::Received},
    {saysUserDeleted, readUserDeleted, Family::Records::Received},
    {saysDoorLog, readDoorLog, Family::Records::Received},
    {saysUserList, readUserList, Family::Records::Received},
    {saysAdministrators, readAdministrators, Family::Records::Received},
    {saysWelcomeAdministrator, readWelcomeAdministrator, Family::Records::Received},
    {saysWelcomeAssistant, readWelcomeAssistant, Family::Records::Received},
    {saysAdministratorHandedOn, readAdministratorHandedOn, Family::Records::Received},
    {saysDeliveryReport, readDeliveryReport, Family::Records::All},
};
