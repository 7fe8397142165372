// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "tree/Editions.h"

#include <QString>
#include <QStringList>

class QCoreApplication;
class QCommandLineOption;
class QCommandLineParser;

/// The command line of mvpublish, validated as far as possible without reading files.
class Arguments
{
public:
    /// Prints help or version and ends the process if asked to. On false see errorText().
    bool parse(const QCoreApplication& application);
    QString errorText() const { return m_error; }

    /// Returns whether words of a command line have "--json", apart from those for rclone.
    static bool asksForJson(const QStringList& words);
    /// Returns whether an operand is the address of a server rather than a folder.
    static bool isAddress(const QString& operand);

    QString command;
    QStringList operands;
    QVector<Edition> editions; ///< build: at least one
    bool installed = false;
    bool hasRelease = true; ///< build: of a server's tree
    bool renew = false;
    int expiryDays = 0; ///< build: 0 for a release that does not expire
    bool force = false;
    QStringList keys;            ///< sign: one file; verify: files or lines of public keys
    bool noPassword = false;     ///< keygen
    int passwordDescriptor = -1; ///< keygen, sign: to be read for the password; -1: ask for it
    QString source;              ///< new: the folder for the item
    bool isAscii = false;        ///< new: names its folder and files in ASCII
    bool json = false;
    bool quiet = false;
    quint16 port = 0;
    int pruneDays = 0; ///< upload: 0 to remove nothing
    bool dryRun = false;
    QStringList rcloneOptions; ///< upload: what follows "--"

private:
    bool checkOperands(const QStringList& options);
    bool readEditions(const QStringList& texts);
    bool readRelease(bool isSwitchedOff, const QString& days);
    bool readKeys();
    bool readPassword(const QString& descriptor);
    bool readPort(const QString& text);
    bool readDays(const QString& option, const QString& text, int& days);
    bool fail(const QString& text);

    QString m_error;
};
