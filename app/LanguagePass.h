#pragma once

class QObject;
struct Module1;

/// Replaces the captions, tool tips and words of the main screen by those that TBLLanguage holds
/// in the language of Module1::CountryCode. Controls are found by their object names; where a cell
/// is empty, or the table ends before, the designed text stands, also behind another language. What
/// has no position there, as the names for screen readers, follows the catalogue of messages; its
/// contexts are the classes of the panels.
/// @throws RuntimeFailure when CountryCode names no language or the table cannot be read.
void ApplyLanguage(QObject &screen, Module1 &module);
