#!/usr/bin/perl
# A driver after zelm-packets(5), in what every Debian has of Perl: it shows a title that can be changed meanwhile.
#
# Put it in the place of a driver, such as /usr/bin/zelm_out_newtek_ndi, and "zelm_outctl -c start" starts it. Names
# that are too long for a metadir are left out here.
use v5.32;
use warnings;
use Errno qw(ECONNREFUSED ENOENT);
use Fcntl qw(:flock F_SETFL O_DIRECTORY O_NOFOLLOW O_NONBLOCK O_RDONLY);
use Socket qw(AF_UNIX MSG_DONTWAIT MSG_NOSIGNAL SOCK_SEQPACKET pack_sockaddr_un);

use constant {ADDRESS => 108, CLIENTS => 256, BACKLOG => 128, PACKET => 1 << 17};
use constant {HEADER => 'a4 V Q< C Z80 v V', HEADER_SIZE => 103};    # its last are count and offset of the entries
my ($title, $ended, $now) = ('untitled', 0, 0);
my (%client, %heard);    # by their descriptors

sub fail { say STDERR @_; exit 1 }

sub text {    # at that offset; none without its NUL
    my ($packet, $at) = @_;
    my $end = $at < length $packet ? index $packet, "\0", $at : -1;
    return $end < 0 ? undef : substr $packet, $at, $end - $at;
}

sub reply {    # to the request, if it is one
    my $packet = shift;
    return if length $packet < HEADER_SIZE;
    my (undef, undef, $sequence, $flags, $word, $count, $table) = unpack HEADER, $packet;
    return unless $flags & 1;
    my ($key, $value) = map { $table + 16 * $_ + 8 <= length $packet && text($packet, unpack 'V', substr $packet, $table + 16 * $_ + 4) }
        grep { $_ < $count } 0, 1;
    $title = $value eq '' ? 'untitled' : $value if $word eq 'set' && $key && $key eq 'title' && defined $value;
    my @lines = $word eq 'report' ? (['*active', 1], map { ['*title', $_] } split /\n/, $title, -1) : ();
    my ($texts, $entries) = ('', '');
    for (@lines) {
        my ($name, $line) = @$_;
        $entries .= pack 'V V x8', HEADER_SIZE + length $texts, HEADER_SIZE + 1 + length $texts . $name;
        $texts .= "$name\0$line\0";
    }
    my $end = HEADER_SIZE + length $texts;
    return pack(HEADER, 'TVP4', $end + length $entries, $sequence, 0, $word, scalar @lines, $end) . $texts . $entries;
}

sub hang_up { my $fd = shift; delete $client{$fd}; delete $heard{$fd} }

sub hang_up_longest_silent { hang_up((sort { $heard{$a} <=> $heard{$b} } keys %heard)[0]) if %heard }

sub talk {    # whoever doesn't read what it asked for, is let go
    my $fd = shift;
    $heard{$fd} = ++$now;
    my $packet = '';
    return hang_up($fd) unless defined recv($client{$fd}, $packet, PACKET, MSG_DONTWAIT) && length $packet;
    my $reply = reply($packet) // return;
    hang_up($fd) unless defined send $client{$fd}, $reply, MSG_DONTWAIT | MSG_NOSIGNAL;
}

sub accept_clients {
    my $listener = shift;
    for (1 .. BACKLOG) {
        accept(my $client, $listener) or return $!{EMFILE} && hang_up_longest_silent();
        hang_up_longest_silent() if keys %client >= CLIENTS;
        $client{fileno $client} = $client;
        $heard{fileno $client}  = ++$now;
    }
}

sub open_socket { socket my $socket, AF_UNIX, SOCK_SEQPACKET, 0 or fail("socket: $!"); fcntl $socket, F_SETFL, O_NONBLOCK; $socket }

sub listen_at {    # drivers that come up at once do it one after the other
    my ($metadir, $entry) = @_;
    mkdir $metadir;
    sysopen my $lock, $metadir, O_RDONLY | O_DIRECTORY | O_NOFOLLOW or fail("$metadir: $!");
    my $limit = time + 2;
    until (flock($lock, LOCK_EX | LOCK_NB) || time > $limit) { select undef, undef, undef, 0.01 }
    my $left = readlink($entry) // $entry;
    my $served = length $left < ADDRESS && (connect(open_socket(), pack_sockaddr_un $left) || !($!{ECONNREFUSED} || $!{ENOENT}));
    fail("another driver serves the item") if $served;
    unlink $entry, $left =~ m{^(/tmp/item-\d+-\d+)$};
    # What no address holds is bound where nobody can foresee it.
    my $at = length $entry < ADDRESS ? $entry : sprintf '/tmp/item-%d-%d', $$, rand 1e15;
    my $listener = open_socket();
    bind $listener, pack_sockaddr_un $at or fail("$at: $!");
    symlink $at, $entry if $at ne $entry;
    listen $listener, BACKLOG;
    return ($listener, $at);
}

fail("usage: driver.pl --file SETTINGS") unless @ARGV == 2 && $ARGV[0] eq '--file';
open my $settings, '<', $ARGV[1] or fail("$ARGV[1]: $!");
while (<$settings>) { $title = $1 if /^title=(.*)/ }
my ($directory, $name) = $ARGV[1] =~ m{^(.*/)?([^/]+)$};
$name =~ s/([\0- %\x7f])/sprintf '%%%02X', ord $1/ge;
my $entry = ($directory // '') . ".$name.metadir/.media.item.active.socket";
$SIG{$_} = sub { $ended = 1 } for qw(TERM INT);
my ($listener, $bound) = listen_at($entry =~ s{/[^/]*$}{}r, $entry);
until ($ended) {
    my $ready = '';
    vec($ready, $_, 1) = 1 for fileno $listener, keys %client;
    next unless select($ready, undef, undef, 0.5) > 0;    # the handler of a signal may come late
    vec($ready, $_, 1) && talk($_) for keys %client;
    accept_clients($listener) if vec $ready, fileno $listener, 1;
}
unlink $entry, $bound;
