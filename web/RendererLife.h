// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

namespace brindlemark {

/// How it stands with the renderer of a control's page. What each event does in each state stands in one
/// table.
class RendererLife
{
public:
    enum class State {
        None,  ///< nothing was loaded yet
        Alive, ///< there, or about to be
        Ended, ///< it ended, and the control's owner has yet to be told
        Missed ///< it ended, and the owner knows
    };
    enum class Event {
        Loads, ///< a page begins to load, in a new renderer where there is none
        Ends,  ///< the renderer ends
        Told   ///< the owner learns of a loss, by a signal or by an operation's result
    };

    State state() const { return m_state; }
    bool isLost() const { return m_state == State::Ended || m_state == State::Missed; }

    void advance(Event event) { m_state = after(m_state, event); }

    /// The end of a renderer that is missed already is no news.
    static constexpr State after(State state, Event event)
    {
        using enum State;
        constexpr std::array<std::array<State, 4>, 3> table = {{
            // None Alive  Ended   Missed
            {Alive, Alive, Alive, Alive},  // Loads
            {Ended, Ended, Ended, Missed}, // Ends
            {None, Alive, Missed, Missed}, // Told
        }};
        return table[size_t(event)][size_t(state)];
    }

private:
    State m_state = State::None;
};

} // namespace brindlemark
