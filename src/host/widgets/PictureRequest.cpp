// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/widgets/PictureRequest.h"

PictureRequest::PictureRequest()
    : m_pState(std::make_shared<std::atomic<State>>(State::Waiting))
{
}

PictureRequest::~PictureRequest()
{
    *m_pState = State::Dropped;
}

bool PictureRequest::hasBegun() const
{
    return *m_pState == State::Begun;
}
