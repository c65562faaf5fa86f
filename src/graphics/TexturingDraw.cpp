// Fragment programs over the fixed pipeline's vertices, whose places so stay the same.

#define GL_GLEXT_PROTOTYPES
#include "graphics/TexturingDraw.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include <array>
#include <cstddef>

#include "graphics/GLWindowDisplay.h"

namespace Texturing {

namespace {

/// By Source. A sampler that nothing sets reads the first texture unit.
constexpr std::array<const char*, 3> texts{
    "uniform sampler2D picture;"
    "void main() { gl_FragColor = texture2D(picture, gl_TexCoord[0].xy); }",
    "uniform sampler2D picture;"
    "void main() { gl_FragColor = vec4(texture2D(picture, gl_TexCoord[0].xy).rgb, 1.0); }",
    "uniform sampler2D picture;"
    "void main() { gl_FragColor = texture2D(picture, gl_TexCoord[0].xy) * gl_Color; }"};

/// By Source; 0 without a program.
std::array<GLuint, texts.size()> programs{};
bool hasPrograms = false;

/// 0 if the driver won't have it.
GLuint Compile(const char* text) {
    const GLuint shader = glCreateShader(GL_FRAGMENT_SHADER);
    glShaderSource(shader, 1, &text, nullptr);
    glCompileShader(shader);
    const GLuint program = glCreateProgram();
    glAttachShader(program, shader);
    glLinkProgram(program);
    glDeleteShader(shader);  // lives on in the program
    GLint isLinked = GL_FALSE;
    glGetProgramiv(program, GL_LINK_STATUS, &isLinked);
    if (isLinked == GL_FALSE) {
        glDeleteProgram(program);
        return 0;
    }
    return program;
}

}  // namespace

void Initialise() {
    Shutdown();
    hasPrograms = GLWindow::HasExtension("GL_ARB_fragment_shader") &&
                  GLWindow::HasExtension("GL_ARB_shading_language_100");
    for (std::size_t i = 0; i < texts.size() && hasPrograms; ++i) {
        programs[i] = Compile(texts[i]);
    }
}

void Shutdown() {
    for (GLuint& program : programs) {
        if (program != 0) {
            glDeleteProgram(program);
            program = 0;
        }
    }
    hasPrograms = false;
}

void Begin(Source source) {
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE,
              source == Source::Tinted ? GL_MODULATE : GL_REPLACE);
    if (hasPrograms) {
        glUseProgram(programs[static_cast<std::size_t>(source)]);
    }
}

void End() {
    if (hasPrograms) {
        glUseProgram(0);
    }
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
}

}  // namespace Texturing
