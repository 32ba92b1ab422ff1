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

/// All families in their order. None excludes another: each tests what the family before it left
/// of the working text, and a text that passes several tests is acted upon several times.
inline constexpr Family kFamilies[] = {
    {saysUserAdded, readUserAdded, Family::Records::Received},
    {saysUserDeleted, readUserDeleted, Family::Records::Received},
};
