#include "support/certificates.hpp"

#include "support/files.hpp"
#include "support/shell.hpp"
#include "support/temporary_folder.hpp"

namespace tolvex::testing {

namespace {

constexpr char authority[] = R"([ca]
default_ca = station
[station]
database = index.txt
serial = serial
new_certs_dir = .
default_md = sha256
policy = names
[names]
commonName = supplied
[req]
distinguished_name = none
[none]
)";

} // namespace

void make_certificate(const std::filesystem::path& folder, const std::string& name, int last_year)
{
    const TemporaryFolder work;
    const auto openssl = [&](const std::string& arguments) {
        const Outcome outcome = run_in_shell("openssl " + arguments, work.path());
        if (outcome.exit_code != 0) throw std::runtime_error(outcome.errors);
    };
    write_file(work.path() / "authority.cnf", authority);
    write_file(work.path() / "index.txt", "");
    write_file(work.path() / "serial", certificate_serial);
    openssl("req -new -newkey rsa:1024 -nodes -keyout key.pem -out request.pem -subj /CN=Prueba "
            "-config authority.cnf");
    openssl("ca -config authority.cnf -batch -selfsign -notext -keyfile key.pem -in request.pem "
            "-out certificate.pem -startdate 20101022164226Z -enddate " +
            std::to_string(last_year) + "1002164226Z");
    openssl("x509 -in certificate.pem -outform DER -out " + quoted(folder / (name + ".cer")));
    openssl("pkcs8 -topk8 -in key.pem -outform DER -out " + quoted(folder / (name + ".key")) + " -passout " +
            quoted(std::string("pass:") + key_password));
}

} // namespace tolvex::testing
