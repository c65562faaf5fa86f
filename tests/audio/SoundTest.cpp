// Samples as they are heard.

#include "audio/Sound.h"

#include <list>

#include "RenderedAudio.h"

namespace {

using namespace Signal;

class SoundTest : public RenderedAudio {
protected:
    SoundTest() { Write("snd/tone.wav", SineWav(441.0, 1.0)); }

    std::list<Sound> PlayMany(std::size_t count, float volume) {
        std::list<Sound> sounds;
        for (std::size_t i = 0; i < count; ++i) {
            sounds.emplace_back("snd\\tone.wav");
            sounds.back().SetVolume(volume);
            sounds.back().PlayLooped();
        }
        return sounds;
    }
    static std::size_t Playing(const std::list<Sound>& sounds) {
        std::size_t count = 0;
        for (const Sound& sound : sounds) {
            count += sound.IsPlaying() ? 1 : 0;
        }
        return count;
    }
};

}  // namespace

TEST_F(SoundTest, IsAsLoudAsItsVolumeSays) {
    Sound sound("SND\\Tone.wav");
    sound.PlayLooped();
    const double full = LoudnessOf(0.5);
    EXPECT_NEAR(full, 0.5 / std::numbers::sqrt2, 0.01);
    const auto fall = [&](float volume) {
        sound.SetVolume(volume);
        Render(0.1);  // The device glides to a new gain.
        return Decibels(LoudnessOf(0.5) / full);
    };
    EXPECT_NEAR(fall(0.5f), -12.94, 0.02);
    EXPECT_NEAR(fall(0.1f), -36.90, 0.05);
    EXPECT_NEAR(fall(2.0f), 0.0, 0.02);
    EXPECT_LT(fall(-1.0f), -150.0);
    EXPECT_EQ(sound.Volume(), 0.0f);
}

TEST_F(SoundTest, PlaysAtTheRateOfItsPitch) {
    Sound sound("snd\\tone.wav");
    sound.PlayLooped();
    const auto rate = [&](float pitch) {
        sound.SetPitch(pitch);
        Render(0.1);
        return Pitch(Render(0.8)) / 441.0 * 44100.0;
    };
    // The device's own steps are 10.8 Hz wide, and round down.
    EXPECT_NEAR(rate(0.0f), 44100.0, 1.0);
    EXPECT_NEAR(rate(-0.5f), 22100.0, 11.0);
    EXPECT_NEAR(rate(0.1f), 59690.0, 11.0);
    EXPECT_NEAR(rate(1.0f), 200000.0, 20.0);
    EXPECT_NEAR(rate(-0.95f), 2300.0, 11.0);
    EXPECT_EQ(sound.Pitch(), -0.95f);
}

TEST_F(SoundTest, EndsOnceAndLoopsWithoutClicks) {
    Sound once("snd\\tone.wav");
    once.Play();
    EXPECT_TRUE(once.IsPlaying());
    Render(0.9);
    EXPECT_TRUE(once.IsPlaying());
    Render(0.2);
    EXPECT_FALSE(once.IsPlaying());
    EXPECT_LT(LoudnessOf(0.2), 1e-6);

    Sound looped("snd\\tone.wav");
    looped.PlayLooped();
    const auto signal = Render(3.5);
    EXPECT_TRUE(looped.IsPlaying());
    EXPECT_NEAR(Loudness(signal), 0.5 / std::numbers::sqrt2, 0.01);
    EXPECT_LT(LargestJump(signal), 0.5 * 2.0 * std::numbers::pi * 441.0 / 44100.0 * 1.05);
}

TEST_F(SoundTest, KeepsItsPlaceUntilRewound) {
    // The first half silent, the second a tone.
    std::string wav = SineWav(441.0, 1.0);
    wav.replace(44, 44100, std::string(44100, '\0'));
    Write("snd/late.wav", wav);
    Sound sound("snd\\late.wav");
    sound.Play();
    EXPECT_LT(LoudnessOf(0.4), 1e-4);
    sound.Stop();
    EXPECT_FALSE(sound.IsPlaying());
    EXPECT_LT(LoudnessOf(1.0), 1e-4);
    sound.Play();
    EXPECT_LT(LoudnessOf(0.05), 1e-4);
    Render(0.1);
    EXPECT_GT(LoudnessOf(0.2), 0.3);
    sound.Rewind();
    Render(0.05);
    EXPECT_LT(LoudnessOf(0.3), 1e-4);
}

TEST_F(SoundTest, PlaysAllForms) {
    for (const unsigned channels : {1u, 2u}) {
        for (const unsigned bits : {8u, 16u}) {
            // A square wave of 100 Hz and half the full amplitude.
            std::string data;
            for (int i = 0; i < 44100; ++i) {
                const bool high = i / 220 % 2 == 0;
                for (unsigned channel = 0; channel < channels; ++channel) {
                    data += bits == 8 ? std::string(1, high ? '\xC0' : '\x40')
                                      : std::string(high ? "\x00\x40" : "\x00\xC0", 2);
                }
            }
            const Platform::PcmFormat format{channels, bits, 44100};
            const auto sample = audio.LoadSample(format, std::as_bytes(std::span(data)));
            const auto voice = audio.MakeVoice(sample);
            audio.Play(voice, false);
            EXPECT_NEAR(LoudnessOf(0.5), 0.5, 0.01) << channels << " channels, " << bits;
            audio.FreeSample(sample);
            EXPECT_LT(LoudnessOf(0.2), 0.05);
        }
    }
    const std::byte byte{};
    EXPECT_EQ(audio.LoadSample({1, 24, 44100}, {&byte, 1}), 0u);
    EXPECT_EQ(audio.LoadSample({2, 16, 44100}, {&byte, 1}), 0u);
    EXPECT_EQ(audio.LoadSample({1, 8, 250000}, {&byte, 1}), 0u);
}

TEST_F(SoundTest, LoadsAFileOnceAndForgetsItWithItsLastSound) {
    const auto memory = [] {
        Console::Clear();
        Console::Execute("SoundMemory");
        return Console::OutputText();
    };
    EXPECT_NE(memory().find("\n0 bytes."), std::string::npos) << memory();
    {
        const Sound first("snd\\tone.wav");
        Write("snd/tone.wav", "no longer a sample");
        const Sound second("SND\\TONE.WAV");
        const Sound missing("snd\\missing.wav");
        EXPECT_NE(memory().find("88200 bytes."), std::string::npos) << memory();
        Console::Execute("SoundList");
        EXPECT_NE(Console::OutputText().find("\nSND\\MISSING.WAV (loading failed)\nSND\\TONE.WAV"),
                  std::string::npos)
            << Console::OutputText();
    }
    EXPECT_NE(memory().find("\n0 bytes."), std::string::npos) << memory();
}

TEST_F(SoundTest, TakesTheMasterVolumeWithItsNextVolume) {
    Sound sound("snd\\tone.wav");
    sound.PlayLooped();
    SoundManager::SetMasterVolume(0.0f);
    EXPECT_GT(LoudnessOf(0.2), 0.3);
    sound.SetVolume(1.0f);
    Render(0.1);
    EXPECT_LT(LoudnessOf(0.2), 1e-6);
    SoundManager::SetMasterVolume(7.0f);
    EXPECT_EQ(SoundManager::MasterVolume(), 1.0f);
}

TEST_F(SoundTest, LetsAudibleSoundsHaveTheSourcesOfSilentOnes) {
    const std::list<Sound> silent = PlayMany(2000, 0.0f);
    const std::size_t most = audio.SourceCount();
    EXPECT_GT(most, 250u);
    EXPECT_EQ(Playing(silent), most);
    const std::list<Sound> audible = PlayMany(100, 0.5f);
    EXPECT_EQ(Playing(audible), 100u);
    EXPECT_EQ(audio.SourceCount(), most);
    const std::list<Sound> tooMany = PlayMany(2000, 0.5f);
    EXPECT_EQ(Playing(audible) + Playing(tooMany), most);
}

TEST_F(SoundTest, ComesBackWithTheDevice) {
    Sound sound("snd\\tone.wav");
    sound.PlayLooped();
    EXPECT_GT(LoudnessOf(0.2), 0.3);
    audio.PlugDevice(false);
    EXPECT_LT(LoudnessOf(0.2), 1e-6);
    EXPECT_FALSE(sound.IsPlaying());
    EXPECT_FALSE(SoundManager::HasDevice());
    Write("snd/other.wav", SineWav(882.0, 1.0));
    Sound madeMeanwhile("snd\\other.wav");
    madeMeanwhile.PlayLooped();
    Render(5.0);
    audio.PlugDevice(true);
    Render(5.0);
    EXPECT_TRUE(SoundManager::HasDevice());
    madeMeanwhile.PlayLooped();
    EXPECT_NEAR(Pitch(Render(0.5)), 882.0, 1.0);
    madeMeanwhile.Stop();
    sound.PlayLooped();
    Render(0.1);
    EXPECT_NEAR(Pitch(Render(0.5)), 441.0, 1.0);
}

TEST(SoundWithoutDevice, IsSilentAndSaysSo) {
    TemporaryDirectory directory;
    const WorkingDirectoryGuard inDirectory{directory.path};
    directory.Write("snd/tone.wav", SineWav(441.0, 1.0));
    Platform::ForgetListings();
    Console::Initialise();
    SoundManager::Initialise();
    SoundManager::InitialiseCache();
    Sound sound("snd\\tone.wav");
    sound.PlayLooped();
    EXPECT_FALSE(sound.IsPlaying());
    Console::Execute("SoundList");
    const std::string text = Console::OutputText();
    EXPECT_NE(text.find("\nError initialising sound subsystem."), std::string::npos);
    EXPECT_NE(text.find("\nSND\\TONE.WAV (loading failed)"), std::string::npos);
    SoundManager::ShutdownCache();
    SoundManager::Shutdown();
    Console::Shutdown();
    Platform::ForgetListings();
}
