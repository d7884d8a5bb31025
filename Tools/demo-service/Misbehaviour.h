#pragma once

#include "demo-service/PictureOrder.h"
#include "demo-service/WireScript.h"

#include <QByteArray>

#include <chrono>
#include <optional>

namespace quorvane {

/// One way in which a service can be hostile or broken. The README of this folder says what each one does on the wire.
struct Misbehaviour
{
    enum class Kind {
        None,
        // A good HTTP answer that says something else.
        ErrorObject,
        ErrorText,
        GoodBodyBadStatus,
        JsonList,
        PlainText,
        EmptyBody,
        NoPicture,
        // A picture in a strange wrapping.
        OddTexts,
        OddErrorText,
        InvalidUtf8,
        DuplicateKeys,
        ManyCandidates,
        NestedLists,
        HugeAnswer,
        DataAddress,
        Base64MissingPadding,
        Base64SurplusPadding,
        Base64LineBreaks,
        Base64UrlAlphabet,
        // Slow, or nothing at all.
        SlowDrip,
        SilenceOnAccept,
        Silence,
        SilenceAfterHeaders,
        SilenceMidBody,
        // Connections that end.
        ResetOnAccept,
        ResetDuringRequest,
        ResetAfterRequest,
        ResetAfterHeaders,
        ResetMidBody,
        CutBody,
        // Framing.
        LengthTooLarge,
        LengthTooSmall,
        Chunked,
        ChunkedCut,
        EndlessHeaders,
        EndlessBody,
        Gzip,
        GzipBomb,
        Garbage,
        // Elsewhere.
        Redirect,
        RedirectLoop
    };

    Misbehaviour() = default;

    /// That kind with its usual values in the fields below, to be changed where a test wants others.
    Misbehaviour(Kind kind); // NOLINT: the conversion is meant

    Kind kind = Kind::None;
    int status = 200;                   ///< The status of the answer.
    qint64 bytes = 0;                   ///< Size of a portion, of a huge answer or of what a bomb unpacks to.
    std::chrono::milliseconds pause{0}; ///< Between two portions.
    QByteArray text;                    ///< The error message (UTF-8), or the address of a redirect.
};

/// Reads "slow-drip" or "slow-drip:bytes=10,pause=5"; the keys are status, bytes, pause (milliseconds) and text, which
/// comes last because it may hold commas. Nothing for an unknown name or key.
[[nodiscard]] std::optional<Misbehaviour> misbehaviourFromText(const QByteArray &text);

/// Every name that misbehaviourFromText() knows.
[[nodiscard]] QByteArrayList misbehaviourNames();

/// Whether misbehaving takes an accepted request and a picture. The other kinds do the same to every request.
[[nodiscard]] bool needsPicture(Misbehaviour::Kind kind);

/// What to do on the wire for a kind that needs no picture and acts once the request is read.
[[nodiscard]] WireScript misbehave(const Misbehaviour &misbehaviour, const HttpRequest &request);

/// What to do on the wire for a kind that needs a picture, which comes encoded. None gives the good answer.
[[nodiscard]] WireScript misbehave(const Misbehaviour &misbehaviour, const PictureOrder &order,
                                   const QByteArray &picture);

} // namespace quorvane
