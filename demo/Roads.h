#pragma once

class Application;
class Road;

// What the roads are made of. Each part begins where the one before ends.

/// The login and what the program asks on its way to the main screen; its modem is ready, if the
/// settings name one.
void logIn(Road &road, Application &lukora);
/// The doors, typed into the empty door list, and what each is called and does by itself, typed
/// into its configuration. Nothing is sent. The list stays open.
void enterDoors(Road &road);
/// The last door is made this modem's: its settings are sent, its users and its log fetched, until
/// the unit has confirmed what units confirm.
void setUpDoor(Road &road, Application &lukora);
void chooseFirstDoor(Road &road);
/// A new user on the first door, until the door has confirmed.
void registerUser(Road &road, Application &lukora);
/// The main screen is closed, and the program ends.
void leave(Road &road, Application &lukora);
