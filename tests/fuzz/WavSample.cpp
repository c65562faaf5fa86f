// Any bytes are a sample file: reading stays within them, and what loads is of a playable form.

#include "audio/WavFile.h"
#include "fuzz/Harness.h"

void Try(std::string_view input) {
    const auto bytes = BytesOf(input);
    const auto wav = WavFile::Parse(bytes);
    Expect(!wav || (!wav->data.empty() && wav->data.data() >= bytes.data() &&
                    wav->data.data() + wav->data.size() <= bytes.data() + bytes.size()));
}
