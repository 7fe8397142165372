// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Parses the header of an answer, line by line.

#include "FuzzTarget.h"
#include "host/ResponseHead.h"
#include "Require.h"

#include <algorithm>
#include <tuple>

namespace {

bool isSame(const ResponseHead& a, const ResponseHead& b)
{
    const auto fields = [](const ResponseHead& head) {
        return std::tie(head.status, head.contentLength, head.chunked, head.strangeTransferCoding,
                        head.contentEncoding, head.location, head.etag, head.lastModified,
                        head.acceptRanges, head.rangeStart, head.rangeTotal,
                        head.retryAfterSeconds);
    };
    return fields(a) == fields(b);
}

bool hasControl(const QByteArray& text)
{
    return std::any_of(text.cbegin(), text.cend(),
                       [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; });
}

class ResponseHeadTarget : public FuzzTarget
{
public:
    void run(const QByteArray& input) override
    {
        const ResponseHead head = read(input);
        require(head.status >= 0 && head.status <= 999, "a status has three digits",
                QString::number(head.status));
        for (const qint64 number :
             {head.contentLength, head.rangeStart, head.rangeTotal, qint64{head.retryAfterSeconds}})
            require(number >= -1, "no number is below -1", QString::number(number));
        require(!head.isInterim() || !head.isRedirect(), "an interim answer leads nowhere");
        // The validator is sent back in a request header.
        require(!hasControl(head.validator()), "a validator has no control characters",
                QString::fromLatin1(head.validator()));
        require(!head.etag.startsWith("W/") || head.validator().isEmpty(),
                "a weak tag validates nothing");
        require(head.contentEncoding == head.contentEncoding.toLower(), "codings have lower case");

        require(isSame(read("HTTP/1.1 302 Found\nLocation: /a\nETag: \"a\"\nContent-Length: 1\n"
                            "Retry-After: 1\nHTTP/1.1 200 OK\n"
                            + input),
                       read("HTTP/1.1 200 OK\n" + input)),
                "a status line starts a new header");
    }

private:
    static ResponseHead read(const QByteArray& lines)
    {
        ResponseHead head;
        const QList<QByteArray> all = lines.split('\n');
        for (const QByteArray& line : all)
            head.addLine(line + "\r\n");
        return head;
    }
};

} // namespace

MV_FUZZ_TARGET(ResponseHeadTarget, QCoreApplication)
