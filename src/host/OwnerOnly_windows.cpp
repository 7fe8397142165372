// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/OwnerOnly.h"

#include "host/SystemHandle.h"

namespace {

/// Returns a TOKEN_USER, with the identifier to which it points; empty on failure.
std::vector<char> userOfProcess()
{
    HANDLE token = nullptr;
    if (::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &token) == 0)
        return {};
    const SystemHandle closed(token);
    DWORD length = 0;
    ::GetTokenInformation(token, TokenUser, nullptr, 0, &length);
    std::vector<char> user(length);
    if (::GetTokenInformation(token, TokenUser, user.data(), length, &length) == 0)
        return {};
    return user; // never a copy: it points into itself
}

} // namespace

OwnerOnly::OwnerOnly()
    : m_user(userOfProcess())
{
    if (m_user.empty())
        return;
    auto* const user = reinterpret_cast<TOKEN_USER*>(m_user.data());
    m_list.resize(sizeof(ACL) + sizeof(ACCESS_ALLOWED_ACE) + ::GetLengthSid(user->User.Sid));
    auto* const list = reinterpret_cast<ACL*>(m_list.data());
    m_isValid = ::InitializeAcl(list, static_cast<DWORD>(m_list.size()), ACL_REVISION) != 0
        && ::AddAccessAllowedAce(list, ACL_REVISION, FILE_ALL_ACCESS, user->User.Sid) != 0
        && ::InitializeSecurityDescriptor(&m_descriptor, SECURITY_DESCRIPTOR_REVISION) != 0
        && ::SetSecurityDescriptorDacl(&m_descriptor, TRUE, list, FALSE) != 0
        && ::SetSecurityDescriptorControl(&m_descriptor, SE_DACL_PROTECTED, SE_DACL_PROTECTED) != 0;
}
