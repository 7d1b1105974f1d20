// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/input/Connection.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <vector>

namespace vexa::test {

/// What a user and another program do in an X session, for tests. The X server has done it when a function
/// returns.
class Hand {
public:
    Hand();
    ~Hand();

    /// On a keyboard of its own, as a pen has one.
    void press(int xKeyCode) { deviceKey(true, xKeyCode); }
    void release(int xKeyCode) { deviceKey(false, xKeyCode); }

    /// Presses the keys one after the other, then releases them from the last to the first.
    void type(std::initializer_list<int> xKeyCodes);

    /// From now on goes on while another client has the server for itself, as real keyboards do.
    void goOnDuringServerGrabs();

    /// On the keyboard through which programs fake keys.
    void fakePress(int xKeyCode);
    void fakeRelease(int xKeyCode);

    void moveTo(int x, int y);
    void warpTo(int x, int y);
    void warpThroughXInput(int x, int y);
    void button(int number, bool down);

    bool isDown(int xKeyCode) const;
    struct Place {
        int x, y;
    };
    Place pointer() const;
    /// As programs are told: also where they are exchanged, the first is XCB_BUTTON_MASK_1.
    int buttonsDown() const;

    /// Another program takes all keys for itself; a synchronous one holds them back until it lets go.
    void grabKeyboard(bool synchronous);
    void grabPointer();
    void ungrab();

    /// As a window manager does with a click, to give the window the focus first.
    void holdClicksBack();
    void passClicksOn();

    /// A window that has the focus, and what keys it was given.
    struct Given {
        bool down;
        int xKeyCode;
        int modifiers; ///< shift, control and alt of the event's state
    };
    void openFocusedWindow();
    std::vector<Given> takeGivenKeys();

private:
    void deviceKey(bool down, int xKeyCode);

    std::unique_ptr<x11::Connection> m_connection;
    std::unique_ptr<x11::Connection> m_program; ///< whose window it is; keeps its events
    std::uint8_t m_keyboard;
};

} // namespace vexa::test
