// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <vector>

#include <windows.h>

/// The security of a new file on Windows that permits the user of the process everything, and
/// nobody else anything; the folder's permissions are not inherited.
class OwnerOnly
{
public:
    OwnerOnly();
    Q_DISABLE_COPY_MOVE(OwnerOnly)

    /// Returns false if the system does not tell who the user is.
    bool isValid() const { return m_isValid; }
    /// Belongs to the object.
    SECURITY_ATTRIBUTES* attributes() { return &m_attributes; }

private:
    std::vector<char> m_user; // a TOKEN_USER, with the identifier to which it points
    std::vector<char> m_list; // an ACL
    SECURITY_DESCRIPTOR m_descriptor = {};
    SECURITY_ATTRIBUTES m_attributes = {sizeof(SECURITY_ATTRIBUTES), &m_descriptor, FALSE};
    bool m_isValid = false;
};
