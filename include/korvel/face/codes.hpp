/**
 * @file codes.hpp
 * Types and codes as enumerations; each has the value and the meaning of its C mark.
 */
#ifndef KORVEL_FACE_CODES_HPP
#define KORVEL_FACE_CODES_HPP

#include <cstdint>
#include <optional>

#include <korvel/plx/common.h>
#include <korvel/plx/controller.h>
#include <korvel/plx/effect.h>
#include <korvel/plx/expression.h>

namespace korvel::plx {

/** See #KRT_PLX_PartType. */
enum class PartType : std::uint32_t {
    audio = KRT_PLX_PART_AUDIO,
    midiAi = KRT_PLX_PART_MIDI_AI,
    midi = KRT_PLX_PART_MIDI,
    none = KRT_PLX_PART_NONE
};

/** See #KRT_PLX_ClipKind. */
enum class ClipKind : std::uint32_t {
    system = KRT_PLX_CLIP_SYSTEM,
    user = KRT_PLX_CLIP_USER,
    none = KRT_PLX_CLIP_NO_KIND
};

/** See #KRT_PLX_Result. */
enum class Result : std::uint32_t {
    ok = KRT_PLX_RESULT_OK,
    nullArgument = KRT_PLX_RESULT_NULL_ARGUMENT,
    emptyAppID = KRT_PLX_RESULT_EMPTY_APP_ID,
    directoryMissing = KRT_PLX_RESULT_DIRECTORY_MISSING,
    directoryNotCreated = KRT_PLX_RESULT_DIRECTORY_NOT_CREATED,
    userDirectoryMissing = KRT_PLX_RESULT_USER_DIRECTORY_MISSING,
    emptyName = KRT_PLX_RESULT_EMPTY_NAME,
    unknownClip = KRT_PLX_RESULT_UNKNOWN_CLIP,
    noPart = KRT_PLX_RESULT_NO_PART,
    waveFileMissing = KRT_PLX_RESULT_WAVE_FILE_MISSING,
    waveFileNotCopied = KRT_PLX_RESULT_WAVE_FILE_NOT_COPIED,
    fileNotOpened = KRT_PLX_RESULT_FILE_NOT_OPENED,
    fileNotWritten = KRT_PLX_RESULT_FILE_NOT_WRITTEN,
    noVoiceBank = KRT_PLX_RESULT_NO_VOICE_BANK,
    badLanguage = KRT_PLX_RESULT_BAD_LANGUAGE,
    noAiVoiceBank = KRT_PLX_RESULT_NO_AI_VOICE_BANK,
    noAiLanguage = KRT_PLX_RESULT_NO_AI_LANGUAGE,
    badAiLanguage = KRT_PLX_RESULT_BAD_AI_LANGUAGE,
    noManager = KRT_PLX_RESULT_NO_MANAGER
};

/** See #KRT_PLX_VibratoPointKind. */
enum class VibratoPointKind : std::uint32_t {
    depth = KRT_PLX_VIBRATO_DEPTH,
    rate = KRT_PLX_VIBRATO_RATE,
    none = KRT_PLX_VIBRATO_NONE
};

/** See #KRT_PLX_ControllerType. */
enum class ControllerType : std::uint32_t {
    dynamics = KRT_PLX_CONTROLLER_DYNAMICS,
    portamento = KRT_PLX_CONTROLLER_PORTAMENTO,
    pitchBendSens = KRT_PLX_CONTROLLER_PITCH_BEND_SENS,
    pitchBend = KRT_PLX_CONTROLLER_PITCH_BEND,
    breathiness = KRT_PLX_CONTROLLER_BREATHINESS,
    brightness = KRT_PLX_CONTROLLER_BRIGHTNESS,
    clearness = KRT_PLX_CONTROLLER_CLEARNESS,
    voiceBlend = KRT_PLX_CONTROLLER_VOICE_BLEND,
    growl = KRT_PLX_CONTROLLER_GROWL,
    exciter = KRT_PLX_CONTROLLER_EXCITER,
    air = KRT_PLX_CONTROLLER_AIR,
    character = KRT_PLX_CONTROLLER_CHARACTER,
    none = KRT_PLX_CONTROLLER_NONE
};

/** See #KRT_PLX_EffectKind. */
enum class EffectKind : std::uint32_t {
    audio = KRT_PLX_EFFECT_AUDIO,
    midi = KRT_PLX_EFFECT_MIDI,
    none = KRT_PLX_EFFECT_NONE
};

/** See #KRT_PLX_ValueType. */
enum class ValueType : std::uint32_t {
    unset = KRT_PLX_VALUE_UNSET,
    int32 = KRT_PLX_VALUE_INT32,
    float32 = KRT_PLX_VALUE_FLOAT,
    string = KRT_PLX_VALUE_STRING,
    none = KRT_PLX_VALUE_NONE
};

namespace detail {

/** No language, whether a live object has none or there is no object, is an empty optional. */
constexpr std::optional<std::uint32_t> language(std::uint32_t id) noexcept
{
    return id <= 127 ? std::optional<std::uint32_t>(id) : std::nullopt;
}

/** What stands in a code that the library has left alone; it is none of its codes. */
inline constexpr std::uint32_t noCode = 0xFFFFFFFF;

} // namespace detail

/** The code of a call that makes or saves something. It is a Result wherever one is expected: compare
 *  it, switch over it, pass it to textOf(). */
class ResultCode {
public:
    /** A call that was not made. */
    constexpr ResultCode() noexcept = default;
    /** From the code of a C function, and whether the function did its work. */
    constexpr ResultCode(std::uint32_t raw, bool isDone) noexcept
        : result_(raw != detail::noCode ? static_cast<Result>(raw)
                  : isDone              ? Result::ok
                                        : Result::noManager),
          isGiven_(raw != detail::noCode)
    {
    }

    /** Where the library gave no code: Result::ok when the work is done, otherwise Result::noManager,
     *  which stands for null handles and for "out of memory". */
    constexpr operator Result() const noexcept { return result_; }
    /** As in C. */
    constexpr explicit operator std::uint32_t() const noexcept
    {
        return static_cast<std::uint32_t>(result_);
    }
    /** Whether the library gave it. */
    [[nodiscard]] constexpr bool isGiven() const noexcept { return isGiven_; }

private:
    Result result_ = Result::noManager;
    bool isGiven_ = false;
};

} // namespace korvel::plx

#endif
