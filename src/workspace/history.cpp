// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/history.h"

#include "workspace/situation.h"

#include <algorithm>
#include <iterator>

namespace comfortics::workspace {

History::History(classic::Frm_Main& form) : m_form(form), m_states{present()}
{
}

void History::add(controls::TextBox& box)
{
    m_besides.push_back(&box);
    m_states = {present()};
    m_at = 0;
    m_typing = kNothing;
}

History::State History::present() const
{
    const classic::Inputs inputs = m_form.inputs();
    State state(inputs.readings.begin(), inputs.readings.end());
    state.insert(state.end(), inputs.assumptions.begin(), inputs.assumptions.end());
    for (const controls::TextBox* const box : m_besides)
        state.push_back(box->text());
    return state;
}

void History::note()
{
    State now = present();
    const State& last = m_states[m_at];
    if (now == last)
        return;
    std::size_t differing = kNothing;
    std::size_t count = 0;
    for (std::size_t i = 0; i < now.size(); ++i)
        if (now[i] != last[i]) {
            differing = i;
            ++count;
        }
    if (count > 1)
        differing = kNothing; // a partner was emptied with it, or a whole set of readings came
    const bool goesOn = differing != kNothing && differing == m_typing && m_at > 0;
    m_states.resize(m_at + 1);
    if (goesOn)
        m_states[m_at] = std::move(now);
    else
        m_states.push_back(std::move(now));
    if (m_states.size() > kMostSteps)
        m_states.erase(m_states.begin());
    m_at = m_states.size() - 1;
    m_typing = differing;
    changed.raise();
}

void History::undo()
{
    note(); // what was typed last is not lost
    if (canUndo())
        go(m_at - 1);
}

void History::redo()
{
    note();
    if (canRedo())
        go(m_at + 1);
}

void History::go(std::size_t to)
{
    m_at = to;
    m_typing = kNothing;
    const State state = m_states[to];
    classic::Inputs wanted;
    std::copy_n(state.begin(), classic::kReadingCount, wanted.readings.begin());
    std::copy_n(std::next(state.begin(), classic::kReadingCount), classic::kAssumptionCount,
                wanted.assumptions.begin());
    write(wanted, m_form.calculation);
    for (std::size_t i = 0; i < m_besides.size(); ++i)
        m_besides[i]->setText(state[kBoxes + i]);
    m_states[to] = present(); // a rule may judge a text that was being typed
    changed.raise();
}

} // namespace comfortics::workspace
