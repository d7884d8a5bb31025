#pragma once

#include <QList>
#include <QString>

namespace quorvane {

/// One thing that a user, or somebody beside him, does. number chooses among what there is to choose from at that
/// moment, so that a list of deeds stays playable when some of them are left out.
struct Deed
{
    enum class Kind {
        OpenAlbum,
        CloseAlbum,
        OpenPicture,
        ClosePreview,
        StepLeft,
        StepRight,
        StarTile,
        DeleteTile,
        ApplyTile,
        StarShown,
        UpscaleShown,
        ShowOriginal,
        UsePrompt,
        TakePromptBack,
        MoveByKey,
        StarByKey,
        DeleteByKey,
        BringBack,
        OpenByKey,
        Type,
        Undo,
        Generate,
        SwitchFourK,
        SwitchNsfw,
        SwitchTheme,
        Resize,
        TypeKey,
        SaveKey,
        RemoveKey,
        ChooseProvider,
        ChooseMethod,
        ChooseModel,
        CloseSettings,
        PromptFromOutside,
        GenerateFromOutside,
        StarFromOutside,
        DeleteFromOutside,
        SettingFromOutside,
        KeyFromOutside,
        FileAdded,
        FileRemoved,
        Count
    };

    Kind kind = Kind::OpenAlbum;
    quint32 number = 0;
};

/// What the number of a deed chooses from a list that is not empty.
template <typename List> [[nodiscard]] auto pick(const List &list, quint32 number)
{
    return list[number % static_cast<quint32>(list.size())];
}

[[nodiscard]] QString nameOf(const Deed &deed);

/// The deeds of a seed.
[[nodiscard]] QList<Deed> deedsOf(quint32 seed, int count);

} // namespace quorvane
