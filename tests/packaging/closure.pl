# closure.pl STATUS DEPENDS: prints the installed packages that the dependencies ask for, directly or
# through others, and writes their entries of dpkg's data base to the file STATUS. Fails if one of
# them is not installed.
use strict;
use warnings;

my ($status, $wanted) = @ARGV;
my (%entry, %provider);
open(my $base, '<', '/var/lib/dpkg/status') or die "status: $!\n";
{
    local $/ = '';    # an entry ends with an empty line
    while (my $text = <$base>) {
        my %field = $text =~ /^([A-Za-z-]+): *(.*)$/mg;
        next unless $field{Status} =~ / installed$/;
        my $native = $field{Architecture} eq 'all' || !$entry{$field{Package}};
        next unless $native;
        $entry{$field{Package}} = {text => $text, %field};
        $provider{$_} //= $field{Package} for map { /^([^ ]+)/ } split /, */, $field{Provides} // '';
    }
}

my (%chosen, @missing);
my @open = ($wanted);
while (defined(my $clauses = shift @open)) {
    for my $clause (split /, */, $clauses) {
        my @names = map { /^([^ :(]+)/ } split / *\| */, $clause;
        my ($found) = grep { defined } map { $entry{$_} ? $_ : $provider{$_} } @names;
        push @missing, $clause unless $found;
        next if !$found || $chosen{$found}++;
        push @open, grep { $_ } @{$entry{$found}}{qw(Pre-Depends Depends)};
    }
}
die "not installed: @missing\n" if @missing;

open(my $copy, '>', $status) or die "$status: $!\n";
for my $name (sort keys %chosen) {
    print $copy $entry{$name}{text};
    my $same = ($entry{$name}{'Multi-Arch'} // '') eq 'same';
    print $same ? "$name:$entry{$name}{Architecture}\n" : "$name\n";
}
close($copy) or die "$status: $!\n";
