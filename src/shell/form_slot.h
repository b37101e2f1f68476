// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/controls.h"

#include <functional>
#include <memory>
#include <utility>

namespace comfortics::shell {

/// The place of a form that is built when first touched and lives until it is unloaded. Touching
/// it again builds a fresh one.
template <class F>
class FormSlot {
public:
    explicit FormSlot(std::function<std::unique_ptr<F>()> build) : m_build(std::move(build)) {}
    FormSlot(const FormSlot&) = delete;
    FormSlot& operator=(const FormSlot&) = delete;

    /// The form, built now if it is not loaded.
    F& touch()
    {
        if (!m_form) {
            m_form = m_build();
            loaded.raise();
        }
        return *m_form;
    }

    /// The form, or null while it is not loaded.
    F* get() const noexcept { return m_form.get(); }

    /// Unloads the form, if it is loaded: its own `Form_Unload` first, then the view.
    void unload()
    {
        if (!m_form)
            return;
        if constexpr (requires(F & form) { form.Form_Unload(); })
            m_form->Form_Unload();
        unloading.raise();
        m_retired = std::move(m_form);
    }

    // For the view: the form has been built; the form is about to go.
    controls::Event loaded;
    controls::Event unloading;

private:
    std::function<std::unique_ptr<F>()> m_build;
    std::unique_ptr<F> m_form;
    // A form may unload itself in a handler of its own, and a view's widgets may outlive the moment
    // a little, so the last form unloaded is kept until the next one is.
    std::unique_ptr<F> m_retired;
};

} // namespace comfortics::shell
